#pragma once

#include <optional>
#include <vector>

#include "route2/member_ends.h"

/// The level of a member whose ends are less than 0.1 mm apart in height, mm: its start node's
/// height. Nothing for any other member.
std::optional<double> LevelOfHorizontalMember(const EndHeights& ends);

/// Whether a horizontal member's level makes a floor: strictly above the base, mm.
bool MakesAFloor(double level, double baseLevel);

/// Levels ascending, without repeats. Only exactly equal levels are one: two beam levels that
/// differ by however little are two floors.
std::vector<double> SortedDistinctLevels(std::vector<double> levels);
