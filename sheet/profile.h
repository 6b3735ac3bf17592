#pragma once

#include <string>

#include "sheet/sheet_parts.h"

// How a check's values run up the building: stories as bands of equal height, both directions, the
// limit.

std::string AngleProfile(const Sheet& sheet);
std::string RatioProfile(const Sheet& sheet);
std::string ModulusProfile(const Sheet& sheet);
