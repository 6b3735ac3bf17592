#pragma once

#include <array>
#include <vector>

#include "tests/support/engine_bench.h"

/// The load cases of the tests of the two rigidity checks: X earthquake 2, Z(or Y) earthquake 3.
inline constexpr std::array<std::int32_t, 2> kEarthquakeXZ{2, 3};

/// A record of one story member: its load case, plan position (mm) and stiffness (kN/mm).
inline StoryMember Column(std::int32_t loadCase, double planX, double planZ, double stiffnessX,
                          double stiffnessZ) {
    StoryMember record;
    record.loadCaseNumber = loadCase;
    record.planX = planX;
    record.planZ = planZ;
    record.horizontalStiffness = {stiffnessX, stiffnessZ};
    return record;
}

/// An engine that holds stories of given records, ready for the rigidity checks.
class StiffStories {
public:
    explicit StiffStories(const std::vector<std::vector<StoryMember>>& stories) : bench(host) {
        bench.engine.earthquakeLoadCaseNumber = kEarthquakeXZ;
        bench.engine.storyInfoSet = true;
        for (const auto& members : stories)
            bench.engine.stories.emplace_back().members = members;
    }

    AijCodeRoute2& engine() { return bench.engine; }
    StoryInfo& Story(std::size_t index = 0) { return bench.engine.stories.at(index); }

    FakeHost host;
    EngineBench bench;
};
