#pragma once

#include <string>

#include "cli/exit_codes.h"
#include "cli/input_cautions.h"
#include "compute/compute_run.h"
#include "compute/run_files.h"

/// `quarnel-cli check MODEL.qhm INPUT.csv`: a run on a recorded building. Prints the status lines,
/// then a summary; problems go to standard error, one line each.
ExitCode CheckRecordedModel(const std::string& modelPath, const std::string& inputPath,
                            LintsInput lintsInput);

/// Runs the checks on any host and prints what `quarnel-cli check` prints: cautions about the
/// input file, status lines, verdicts, warnings, where the files are, why the run ended early.
/// `guard` says which files the command must not mix up.
RunOutcome CheckOnHost(const HostConnector& connectHost, const std::string& inputPath,
                       const FileGuard& guard, LintsInput lintsInput);
