#pragma once

#include <string>

#include "cli/exit_codes.h"

struct ImportOptions {
    std::string folder;
    std::string modelPath;  ///< the recorded building to write
    std::string inputPath;  ///< names the load cases that matter; empty: all that have answers
    bool force = false;     ///< write it whatever the checks of the statements say
};

/// `quarnel-cli import FOLDER OUT.qhm`: a recorded building out of the tables of any analysis
/// program. Prints what was read; faults, cautions and wrong statements go to standard error, one
/// line each.
///
/// Returns kExitUsage when the tables have faults, and kExitEndedEarly when a statement about them
/// cannot be right: then, unless forced, nothing is written.
ExitCode ImportTablesOf(const ImportOptions& options);
