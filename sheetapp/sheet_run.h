#pragma once

#include "sheetapp/run_progress.h"
#include "sheetapp/run_request.h"

/// One run with its calculation sheet, which stands beside log and results. `connectHost` gives the
/// running host; a recording needs none. Whatever goes wrong is in the result.
RunResult RunAndWriteSheet(const RunRequest& request, const HostConnector& connectHost,
                           RunProgress& progress);
