#pragma once

#include <string>

#include "compute/compute_run.h"
#include "tests/support/fake_host.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

/// The findings of a whole run on `host`, in a folder of its own.
inline Findings FindingsOf(FakeHost& host, const std::string& input) {
    const TestFolder folder;
    host.modelPath = folder.Path("tower.ext");
    StatusLines status;
    ReportPaths reports;
    return RunCompute(folder.Write("input.csv", input), [&host] { return &host; }, status, reports,
                      {.wantsFindings = WantsFindings::kYes})
        .findings.value();
}
