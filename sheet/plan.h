#pragma once

#include <string>

#include "sheet/sheet_parts.h"

/// A plan of every story, the top one first, all at the same scale: members, stiffness, both
/// centres, and the box in which the centre of gravity must lie.
void AppendPlans(std::string& html, const Sheet& sheet);
