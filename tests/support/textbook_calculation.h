#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "tests/support/random_building.h"

/// The checks of one story by the formulas of the textbooks, in mm and kN.
struct TextbookStory {
    double lowerLevel = 0.0;
    double upperLevel = 0.0;
    std::vector<std::int32_t> members;  ///< from the lower to the upper floor

    /// Per load case; of every story member and of all together.
    struct Drift {
        double mean = 0.0;
        double largest = 0.0;  ///< in size
        bool allForward = true;
    };
    std::map<std::int32_t, Drift> driftX, driftZ;
    std::map<std::int32_t, double> stiffnessRatioX, stiffnessRatioZ;  ///< of the mean drift

    std::map<std::int32_t, double> shearX, shearZ;  ///< per member, under its earthquake
    double weight = 0.0;
    PlanVector gravityCenter;
    PlanVector rigidityCenter;
    double stiffnessX = 0.0, stiffnessZ = 0.0;
    double torsionalStiffness = 0.0;
    double eccentricityModulusX = 0.0, eccentricityModulusZ = 0.0;
};

/// A second calculation of all checks, for comparison only: straight from the building, loop by
/// loop over its members, sharing no code with the engine. Lowest story first.
std::vector<TextbookStory> CalculateByTextbook(const Building& building);
