#pragma once

#include "host/host_queries.h"
#include "route2/records.h"

/// An end force (first three of `force`, along the record's local axes) in global axes, base
/// force unit.
Vec3 GlobalForce(const SixDoubles& force, const StoryMember& record);

/// Shear over displacement, kN/mm; 0 when the displacement is exactly 0.
double HorizontalStiffness(double shearForce, double relativeDisp);
