#pragma once

#include <cstdio>

#include "route2/aij_code_route2.h"

/// Writes the six sections of the results file: one table per check, from the engine's records.
/// Gives the number of verdicts printed. `file` is open and stays open. An index beyond a vector's
/// end stops it at that row with std::out_of_range.
PrintedVerdicts WriteResultRows(std::FILE* file, const AijCodeRoute2& engine);
