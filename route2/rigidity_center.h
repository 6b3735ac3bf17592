#pragma once

#include <vector>

#include "route2/records.h"

/// One story's horizontal stiffness, summed over its members.
struct StiffnessSums {
    double kx = 0.0;        ///< X direction, kN/mm
    double kz = 0.0;        ///< Z(or Y) direction, kN/mm
    double kxTimesZ = 0.0;  ///< X stiffness weighted with planZ, kN
    double kzTimesX = 0.0;  ///< Z(or Y) stiffness weighted with planX, kN
};

/// Sums the stiffness of the records under the two earthquake load cases.
///
/// A record counts for one direction only, X first: with equal case numbers everything goes to kx
/// and kz stays 0.
StiffnessSums SumStiffness(const std::vector<StoryMember>& members, const EarthquakeCases& cases);

/// Whether a direction has stiffness at all: a total (kN/mm) that is nearly 0, or not a number, is
/// none.
bool HasStiffness(double total);

/// Plan position of the centre of rigidity, mm.
///
/// X is 0 when kz is nearly zero or not a number. Z(or Y) has no such fallback: it is the plain
/// quotient, NaN or very large when kx vanishes. The caller writes the warnings.
PerDirection RigidityCenter(const StiffnessSums& sums);
