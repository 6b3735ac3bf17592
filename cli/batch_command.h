#pragma once

#include <string>

#include "cli/exit_codes.h"

struct BatchOptions {
    std::string folder;   ///< for everything that is written; empty: named like the list, beside it
    unsigned atOnce = 0;  ///< jobs beside each other; 0: as many as there are processors
};

/// `quarnel-cli batch JOBS.csv`: a calculation sheet for every row, and pages about them all.
/// kExitVerdict when a job is not OK, kExitEndedEarly when one ended early.
ExitCode RunBatch(const std::string& listPath, const BatchOptions& options);
