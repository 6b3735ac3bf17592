#pragma once

#include "host/host_queries.h"
#include "host/member_axes.h"
#include "route2/records.h"

/// Turns a force at a member's lower end (base force unit) into the shear that the member carries
/// (kN): the sign is reversed.
double ShearPerForce(bool inchUnits);

/// A member's shear in both plan directions, kN, from its end force at the lower end.
PerDirection ShearOf(const SixDoubles& force, const MemberAxes& axes, bool zIsVertical,
                     bool inchUnits);

/// Shear over displacement, kN/mm; 0 when the displacement is exactly 0.
double HorizontalStiffness(double shearForce, double relativeDisp);

/// A record's stiffness: X in records of the X earthquake case, Z(or Y) in those of the other, 0
/// in the rest. X first: with equal case numbers no Z(or Y) stiffness is ever formed.
void SetHorizontalStiffness(StoryMember& record, const EarthquakeCases& cases);
