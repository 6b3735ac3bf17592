#pragma once

#include <functional>
#include <string>

#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/remembering_host.h"
#include "tests/support/small_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

/// A model file of the small building in `folder`, as changed by `change`, with everything that a
/// run and its findings ask. Gives its path.
inline std::string WriteRecordedSmallBuilding(
    const TestFolder& folder, const std::string& name,
    const std::function<void(FakeHost&)>& change = [](FakeHost&) {}) {
    const TestFolder other;
    FakeHost host;
    AddSmallBuilding(host);
    change(host);
    host.modelPath = other.Path("tower.ext");
    RememberingHost remembering(host);
    StatusLines status;
    ReportPaths reports;
    RunCompute(other.Write("input.csv", kSmallBuildingInput), [&] { return &remembering; }, status,
               reports, {.wantsFindings = WantsFindings::kYes});
    WriteQhmFile(remembering.Memory(), folder.Path(name));
    return folder.Path(name);
}
