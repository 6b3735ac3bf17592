#pragma once

#include <string>

#include "cli/check_options.h"
#include "compute/compute_run.h"
#include "report/run_description.h"

/// Writes the figures as the options want them, each file whole or not at all. False, with an error
/// line for each, when one cannot be written.
bool WriteFigureFiles(const Findings& findings, const RunDescription& run,
                      const FigureFiles& files);
