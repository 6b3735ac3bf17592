#pragma once

#include <string>

#include "tests/support/fake_host.h"

/// Two stories of 3.5 m on a 6 m by 5 m plan, four columns and four beams each; load cases 1
/// (dead), 2 (earthquake X), 3 (earthquake Z), combination 101. Every query is asked in its run.
inline void BuildTwoStories(FakeHost& host) {
    host.primaryLoadCases = {1, 2, 3};
    host.loadCombinations = {101};
    const double x[] = {0.0, 6.0, 6.0, 0.0};
    const double z[] = {0.0, 0.0, 5.0, 5.0};
    for (std::int32_t floor = 0; floor <= 2; ++floor)
        for (std::int32_t i = 0; i < 4; ++i)
            host.Node(10 * floor + i + 1, x[i], 3.5 * floor, z[i], floor == 0);
    for (std::int32_t story = 1; story <= 2; ++story) {
        for (std::int32_t i = 0; i < 4; ++i) {
            const std::int32_t column = 100 * story + i + 1;
            const std::int32_t lower = 10 * (story - 1) + i + 1;
            const std::int32_t upper = 10 * story + i + 1;
            host.Member(column, lower, upper);
            host.Member(column + 10, upper, 10 * story + (i + 1) % 4 + 1);
            host.Displace(2, upper, 0.007 * story, 0.0, 0.0);
            host.Displace(3, upper, 0.0, 0.0, 0.005 * story);
            host.Force(1, column, 0, 100.0 * (3 - story), 0.0, 0.0);
            host.Force(2, column, 0, 0.0, 50.0 + i, 0.0);
            host.Force(3, column, 0, 0.0, 0.0, -40.0 - i);
        }
    }
}

/// Dead load case 1, earthquake cases 2 and 3, one member reported.
inline const std::string kTwoStoryInput =
    "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nMemberDeformAngle,101,\nFIN\n";
