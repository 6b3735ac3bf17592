#pragma once

#include "route2/aij_code_route2.h"
#include "route2/findings.h"

/// Forms everything that a run has found: once, after the results are closed. `end` says how the
/// run ended.
///
/// Asks the engine's host for the end forces and displacements of the members that a story's
/// cutting plane meets and that are no story members of it; what the run itself has asked is asked
/// again, which a remembering host answers by itself. A run that ended early asks nothing and has
/// the stories as far as they were set.
Findings FormFindings(const AijCodeRoute2& engine, const RunEnd& end);
