#pragma once

#include <string>
#include <vector>

#include "batch/job_outcome.h"

// The pages about all jobs. `outcomes` stand in the order in which they are shown.

/// One HTML page with a row per job and links to its files.
std::string BatchIndex(const std::vector<JobOutcome>& outcomes);

/// The same for spreadsheets: UTF-8 with byte-order mark, CR LF.
std::string BatchSummary(const std::vector<JobOutcome>& outcomes);
