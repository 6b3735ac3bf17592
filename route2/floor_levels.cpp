// Floor levels: from the input file, or else the base level and the levels of the horizontal
// members above it.

#include "route2/floor_levels.h"

#include <algorithm>
#include <cmath>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tolerances.h"

std::optional<double> LevelOfHorizontalMember(const EndHeights& ends) {
    if (!(std::abs(ends.start - ends.end) < kSameLevel)) return std::nullopt;
    return ends.start;
}

bool MakesAFloor(double level, double baseLevel) {
    return level > baseLevel;
}

std::vector<double> SortedDistinctLevels(std::vector<double> levels) {
    // A stable sort, because it stays within the vector even when a level of the file is not a
    // number.
    std::stable_sort(levels.begin(), levels.end());
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

bool AijCodeRoute2::GetFloorLevelOfMember(std::int32_t member, double& level) {
    const auto found =
        LevelOfHorizontalMember(AskEndHeights(member, WarningKind::kNodeMissingForFloor));
    if (found) level = *found;
    return found.has_value();
}

void AijCodeRoute2::SetFloorInfo() {
    LogStart(logFile, "floor info");
    SetFloorInfoWithDataFile();
    floorLevelsFromFile = floorLevelsSet;
    if (!floorLevelsSet) DeriveFloorLevels();
    floorLevels = SortedDistinctLevels(std::move(floorLevels));
    LogFloorLevels();
    LogEnd(logFile, "floor info");
}

void AijCodeRoute2::DeriveFloorLevels() {
    floorLevels.push_back(baseLevel);
    for (const std::int32_t member : memberNumbers) {
        double level = 0.0;
        if (GetFloorLevelOfMember(member, level) && MakesAFloor(level, baseLevel))
            floorLevels.push_back(level);
    }
    floorLevelsSet = true;
}

void AijCodeRoute2::LogFloorLevels() {
    Print(logFile, "Floor info. :\n");
    for (std::size_t i = 0; i < floorLevels.size(); ++i)
        Print(logFile, "  %d-th floor level(mm) = %.2f\n", static_cast<int>(i + 1), floorLevels[i]);
}
