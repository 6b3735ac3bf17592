#pragma once

#include <optional>

#include "route2/findings.h"

// Factors by which the required ultimate capacity of a story grows with its shape (Ministry of
// Construction notification 1792 of 1980, item 7). Not part of Route 2: told for whoever has to go
// on by the other procedure.

/// F_s: 2.0 - ratio / 0.6 below the limit of the stiffness ratio, else 1.
double StiffnessShapeFactor(double ratio);

/// F_e: 1 up to the limit of the eccentricity modulus, 1.5 from twice that limit, linear between.
double EccentricityShapeFactor(double modulus);

/// Both and their product, of a direction that is beyond one of the limits; nothing for others.
std::optional<ShapeFactors> FormShapeFactors(const DirectionFindings& direction);
