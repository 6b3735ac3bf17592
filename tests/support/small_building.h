#pragma once

#include "tests/support/fake_host.h"

/// One story of 3.5 m on four columns, with a roof beam, Y vertical, metres and kN. Load cases 1
/// (dead), 2 (earthquake X), 3 (earthquake Z) and the combination 101.
///
/// Plan, x by z: columns 1 (0, 0), 2 (6, 0), 3 (0, 4), 4 (6, 4); nodes 1 to 4 below, 11 to 14
/// above; the beam is member 9. A column's local axes are x (0, 1, 0), y (-1, 0, 0), z (0, 0, 1).
inline void AddSmallBuilding(FakeHost& host) {
    const double plan[4][2] = {{0, 0}, {6, 0}, {0, 4}, {6, 4}};
    for (std::int32_t i = 0; i < 4; ++i)
        host.Node(i + 1, plan[i][0], 0, plan[i][1], true);
    for (std::int32_t i = 0; i < 4; ++i)
        host.Node(i + 11, plan[i][0], 3.5, plan[i][1]);
    for (std::int32_t i = 1; i <= 4; ++i) {
        host.Member(i, i, i + 10);
        host.Displace(2, i + 10, 0.007, 0, 0).Displace(3, i + 10, 0, 0, 0.0035);
        host.Force(1, i, 0, 100, 0, 0).Force(2, i, 0, 0, 14, 0).Force(3, i, 0, 0, 0, -14);
    }
    host.Member(9, 11, 12);
    host.primaryLoadCases = {1, 2, 3};
    host.loadCombinations = {101};
}

/// The Route 2 Input file of the small building.
inline constexpr const char* kSmallBuildingInput =
    "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFIN\n";
