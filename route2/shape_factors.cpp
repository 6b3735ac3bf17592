#include "route2/shape_factors.h"

#include <algorithm>

#include "route2/code_verdict.h"

namespace {

constexpr double kLargestEccentricityFactor = 1.5;

}  // namespace

double StiffnessShapeFactor(double ratio) {
    return ratio < kCodeStiffnessRatio ? 2.0 - ratio / kCodeStiffnessRatio : 1.0;
}

double EccentricityShapeFactor(double modulus) {
    const double beyond = (modulus - kCodeEccentricityModulus) / kCodeEccentricityModulus;
    return 1.0 + (kLargestEccentricityFactor - 1.0) * std::clamp(beyond, 0.0, 1.0);
}

std::optional<ShapeFactors> FormShapeFactors(const DirectionFindings& direction) {
    if (direction.stiffnessRatioCode != CodeVerdict::kNg &&
        direction.eccentricityCode != CodeVerdict::kNg)
        return std::nullopt;
    ShapeFactors factors;
    if (direction.stiffnessRatio)
        factors.stiffness = Finite(StiffnessShapeFactor(*direction.stiffnessRatio));
    if (direction.eccentricityModulus)
        factors.eccentricity = EccentricityShapeFactor(*direction.eccentricityModulus);
    if (factors.stiffness && factors.eccentricity)
        factors.product = Finite(*factors.stiffness * *factors.eccentricity);
    return factors;
}
