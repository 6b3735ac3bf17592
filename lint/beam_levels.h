#pragma once

#include <cstddef>
#include <vector>

#include "lint/model_view.h"
#include "route2/floor_shape.h"

/// Beams of one floor lie less than this apart, mm.
inline constexpr double kOneFloor = 100.0;

/// Horizontal members that a floor has at least.
inline constexpr std::size_t kLeastMembersOfAFloor = 3;

/// A height at which horizontal members lie: a floor, a landing, two beams.
struct BeamLevel {
    double level = 0.0;       ///< mm, of the first member there
    std::size_t members = 0;  ///< horizontal members less than 0.1 mm beside
    PlanRectangle plan;       ///< around their ends
};

/// All of them, ascending.
std::vector<BeamLevel> FindBeamLevels(const ModelView& view);

/// What makes a floor of a level: at least three horizontal members that span a tenth of the plan
/// of all nodes.
bool CarriesAFloor(const BeamLevel& level, const ModelView& view);

/// The levels of which a careful engineer would make floors, with the base: beams of one floor that
/// differ by less than 100 mm are one.
std::vector<double> LevelsOfFloors(const ModelView& view);
