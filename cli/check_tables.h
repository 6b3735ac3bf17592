#pragma once

#include <ostream>

#include "route2/findings.h"

/// Prints a table per check and direction: a row per story, lowest first, with the values under the
/// direction's earthquake case, the allowable value, the tool's verdict and the code's.
void PrintCheckTables(std::ostream& out, const Findings& findings, bool useColor);
