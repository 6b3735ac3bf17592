#pragma once

#include <array>
#include <cstdint>

#include "route2/records.h"

/// One story's stiffness about its centre of rigidity.
struct TorsionalStiffness {
    double kx = 0.0;  ///< X direction, kN/mm
    double kz = 0.0;  ///< Z(or Y) direction, kN/mm
    double kr = 0.0;  ///< torsional stiffness about the centre of rigidity, kN mm
};

/// Sums over the records under the two earthquake load cases. A record of both counts in both.
TorsionalStiffness SumTorsionalStiffness(
    const StoryInfo& story, const std::array<std::int32_t, 2>& earthquakeLoadCaseNumber);

/// Eccentricity `distance` (mm, any sign) over the elastic radius sqrt(kr / k) of a direction with
/// stiffness `k`; 0 when the radius is 0, NaN when the quotient is negative.
double EccentricityModulus(double distance, double kr, double k);
