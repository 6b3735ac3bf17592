#pragma once

#include <array>
#include <cstddef>

#include "tables/model_statement.h"

/// Signs that turn what a table says about a member's end into what acts on that end.
struct EndForceSigns {
    double axial = 1.0;  ///< of the force along the member
    double other = 1.0;  ///< of the other two forces and of all moments
};

/// `end`: 0 start, 1 end. Internal forces act on the negative cut face at the start of a member and
/// on the positive one at its end.
EndForceSigns SignsOf(EndForceSense sense, std::size_t end);
