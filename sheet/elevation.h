#pragma once

#include <string>

#include "sheet/sheet_parts.h"

/// The building from two sides, one along each plan direction, at the same scale: floor levels,
/// stories, what is counted as a story member and what is not.
std::string Elevations(const Sheet& sheet);
