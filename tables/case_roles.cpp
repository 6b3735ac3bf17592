#include "tables/case_roles.h"

#include <algorithm>
#include <cmath>

#include "tables/vectors.h"

namespace {

constexpr std::int32_t kDefaultDeadLoadCase = 1;  // as a run takes it
constexpr double kEarthquakeRatio = 3.0;          // horizontal over vertical displacement

struct LargestMotion {
    double horizontal = 0.0;
    double vertical = 0.0;
};

LargestMotion MotionUnder(const CheckedBuilding& building, std::int32_t loadCase) {
    LargestMotion largest;
    for (const std::size_t node : building.Nodes()) {
        const Vec3 moved = building.Displacement(node, loadCase);
        largest.horizontal = std::max(largest.horizontal, LengthOf(building.InPlan(moved)));
        largest.vertical = std::max(largest.vertical, std::abs(building.HeightOf(moved)));
    }
    return largest;
}

CaseRoles RolesOfInput(const CheckedBuilding& building, const InputRoles& input) {
    CaseRoles roles;
    roles.from = input.inputPath;
    const TableCases& cases = building.Tables().cases;
    roles.dead = input.dead;
    if (!roles.dead && cases.Find(kDefaultDeadLoadCase)) roles.dead = kDefaultDeadLoadCase;
    for (const std::int32_t loadCase : input.earthquake)
        if (cases.Find(loadCase)) roles.earthquake.push_back(loadCase);
    return roles;
}

}  // namespace

CaseRoles RolesOf(const CheckedBuilding& building, const std::optional<InputRoles>& input) {
    if (input) return RolesOfInput(building, *input);
    CaseRoles roles;
    roles.from = "the displacements";
    for (const TableCase& row : building.Tables().cases.Rows()) {
        const LargestMotion largest = MotionUnder(building, row.number);
        if (row.isPrimary && largest.horizontal > kEarthquakeRatio * largest.vertical)
            roles.earthquake.push_back(row.number);
        if (!roles.dead && largest.vertical > largest.horizontal) roles.dead = row.number;
    }
    return roles;
}
