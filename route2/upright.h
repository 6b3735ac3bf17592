#pragma once

#include "host/vec3.h"

/// Whether a member stands upright: the plan distance of its two ends (mm) is at most 5 % of their
/// difference in height. Everything else leans, a level member too. Upright members are columns
/// and walls' frames; the drift of a leaning one contains the turning of the floors, because its
/// ends stand at different places in plan.
bool IsUpright(const Vec3& oneEnd, const Vec3& otherEnd, bool zIsVertical);
