#pragma once

#include "route2/records.h"
#include "route2/tool_verdict.h"

/// One story's stiffness about its centre of rigidity.
struct TorsionalStiffness {
    double kx = 0.0;       ///< X direction, kN/mm
    double kz = 0.0;       ///< Z(or Y) direction, kN/mm
    double kr = 0.0;       ///< torsional stiffness about the centre of rigidity, kN mm
    PerDirection parts{};  ///< what each direction's stiffness adds to it, kN mm
};

/// Sums over the records under the two earthquake load cases. A record of both counts in both.
TorsionalStiffness SumTorsionalStiffness(const StoryInfo& story, const EarthquakeCases& cases);

/// Whether there is a torsional stiffness to divide by: not when it is nearly 0 or negative. A NaN
/// counts as one, and makes the modulus a NaN.
bool HasTorsionalStiffness(double kr);

/// Elastic radius sqrt(kr / k) of a direction with stiffness `k`, mm; NaN when the quotient is
/// negative.
double ElasticRadius(double kr, double k);

/// The distance between the centres of gravity and of rigidity across each direction, mm, signed:
/// the X direction has its eccentricity along Z(or Y), and the other way round.
PerDirection EccentricityAcross(const StoryInfo& story);

/// Eccentricity `distance` (mm, any sign) over the elastic radius of a direction with stiffness
/// `k`; 0 when the radius is 0.
double EccentricityModulus(double distance, double kr, double k);

/// The tool's verdict: passes below the allowable value.
ToolVerdict JudgeEccentricityModulus(double modulus, double allowable);
