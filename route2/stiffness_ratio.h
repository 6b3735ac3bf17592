#pragma once

#include "route2/records.h"
#include "route2/tool_verdict.h"

/// A story's stiffness index rs = story height / relative story displacement, the reciprocal of
/// the story deformation angle; both in mm. 0 when the angle is 0. Negative displacements give
/// negative indices. A height of 0 is not looked at: it gives 0, or NaN when the displacement is 0
/// too.
double StiffnessIndexOfAnyHeight(double relativeDisp, double storyHeight);

/// The same, and 0 for a story height that is not positive.
double StiffnessIndex(double relativeDisp, double storyHeight);

/// Story stiffness ratio Rs = rs / rs-bar from the story deformation angle, which is 1 / rs.
/// X direction: 1 / (angle * rsBar); 0 when that product is 0.
double StiffnessRatioX(double angle, double rsBar);

/// Z(or Y) direction: (1 / angle) / rsBar; 0 when either is 0.
double StiffnessRatioZ(double angle, double rsBar);

/// The ratio of direction `axis`, kX or kZ.
double StiffnessRatio(std::size_t axis, double angle, double rsBar);

/// The tool's verdict: passes above the allowable value.
ToolVerdict JudgeStiffnessRatio(double ratio, double allowable);
