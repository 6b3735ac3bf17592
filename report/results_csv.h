#pragma once

// Values that the results file derives from stored displacements. Displacements and heights in
// mm; angles and ratios are dimensionless.

/// Story deformation angle; 0 for a story height that is not positive.
double DeformAngle(double relativeDisp, double storyHeight);

/// Story stiffness ratio of the X direction: 1 / (angle * rsBar); 0 when that product is 0.
double StiffnessRatioX(double angle, double rsBar);

/// Story stiffness ratio of the Z(or Y) direction: (1 / angle) / rsBar; 0 when either is 0.
double StiffnessRatioZ(double angle, double rsBar);
