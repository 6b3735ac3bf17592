#pragma once

#include <string>

#include "sheet/sheet_parts.h"

/// Shape factors of the stories that are beyond a limit of stiffness ratio or eccentricity modulus;
/// nothing when there are none.
std::string ShapeFactorLines(const Sheet& sheet);
