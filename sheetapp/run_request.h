#pragma once

#include <string>
#include <vector>

#include "compute/compute_run.h"

/// What the window is to run.
struct RunRequest {
    std::string input;      ///< the Route 2 Input file
    std::string recording;  ///< a recorded building; empty: the running host
};

/// How a run and its calculation sheet came out.
struct RunResult {
    RunOutcome outcome;
    ReportPaths reports;
    std::vector<StatusText> lines;  ///< of the status list
    bool cancelled = false;         ///< by the user
    bool hostWasBusy = false;       ///< the call that came last was rejected until then
    std::string recordingFailure;   ///< why the recording cannot be read; empty when it was
    std::string sheetPath;          ///< empty: no sheet was written
    std::string sheetFailure;       ///< why it could not be; empty where there was nothing to write
};
