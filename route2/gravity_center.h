#pragma once

#include "host/host_queries.h"
#include "host/member_axes.h"
#include "route2/records.h"

/// Height of the plane at which a story is cut to weigh what it carries, mm: a tenth of the story
/// height above its lower level.
double CuttingLevel(const StoryInfo& story);

/// Whether a member with these end heights (mm) meets the plane: it begins below and ends at or
/// above it.
bool IsCut(double lowerHeight, double upperHeight, double cuttingLevel);

/// The vertical force (kN) that a member is weighed with, from its end force at the lower end (base
/// force unit). The sign is the host's.
double WeightOf(const SixDoubles& force, const MemberAxes& axes, bool zIsVertical, bool inchUnits);

/// Vertical forces of the members that a story's cutting plane meets, kN and kN mm. The sign is
/// the host's.
struct WeightSums {
    double weight = 0.0;
    double weightTimesX = 0.0;
    double weightTimesZ = 0.0;
};

/// Adds one member's vertical force (kN) at its lower end, which stands at `lowerPoint` (mm).
void AddWeight(WeightSums& sums, double weight, const Vec3& lowerPoint, bool zIsVertical);

/// False when the story carries nothing, or no number: it then has no centre of gravity.
bool HasWeight(const WeightSums& sums);

/// The force-weighted mean position, mm; (0, 0) without weight.
PerDirection GravityCenter(const WeightSums& sums);
