#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "cli/check_options.h"
#include "cli/exit_codes.h"
#include "compute/compute_run.h"
#include "input/input_check.h"

/// `quarnel-cli check MODEL.qhm INPUT.csv`: a run on a recorded building, or on that of a folder of
/// tables. Prints the status lines, then what was found; problems go to standard error, one line
/// each.
ExitCode CheckBuilding(const std::string& path, const std::string& inputPath,
                       const CheckOptions& options);

/// A host whose building is checked.
struct CheckedHost {
    HostConnector connect;
    std::string recordingPath;  ///< as given on the command line; empty for the running host

    /// Of a recorded host; see FindingsSources.
    std::function<std::size_t()> unlistedAnswers = {};

    /// Called before anything is printed, to take away a line that shows how far the questions are.
    std::function<void()> beforePrinting = [] {};
};

struct CheckResult {
    RunOutcome outcome;
    ReportPaths reports;
    ExitCode code = kExitEndedEarly;
    InputCheck input;  ///< of the file as it was when the run began
};

/// Runs the checks on any host and prints what `quarnel-cli check` prints: cautions about the
/// input file, status lines, findings, where the files are, why the run ended early. Writes the
/// figures that the options want. `guard` says which files the command must not mix up.
CheckResult CheckOnHost(const CheckedHost& host, const std::string& inputPath,
                        const CheckOptions& options, const FileGuard& guard);
