#pragma once

#include <string>

#include "cli/check_options.h"
#include "cli/exit_codes.h"
#include "cli/lint_command.h"
#include "cli/sheet_command.h"

/// `quarnel-cli check INPUT.csv`: a run on the running host.
ExitCode CheckRunningHost(const std::string& inputPath, const CheckOptions& options);

/// How much `quarnel-cli record` asks the host.
enum class RecordingScope {
    kRun,         ///< what the run asks; the recording is for its input file
    kEverything,  ///< all nodes and members under all load cases, for any input file
};

/// `quarnel-cli record INPUT.csv OUT.qhm`: a run on the running host, and everything that it asked
/// as a host model file. A run in which a host call failed, or which ended before it had read the
/// model, writes no file.
ExitCode RecordRunningHost(const std::string& inputPath, const std::string& recordingPath,
                           RecordingScope scope, const CheckOptions& options);

/// `quarnel-cli sheet INPUT.csv`: a run on the running host, and its sheet.
ExitCode SheetOfRunningHost(const std::string& inputPath, const SheetRequest& request);

/// `quarnel-cli lint INPUT.csv --host`.
ExitCode LintRunningHost(const LintOptions& options);
