#pragma once

/// A story's stiffness index rs = story height / relative story displacement, the reciprocal of
/// the story deformation angle; both in mm. 0 when the angle is 0. Negative displacements give
/// negative indices. A height of 0 is not looked at: it gives 0, or NaN when the displacement is 0
/// too.
double StiffnessIndexOfAnyHeight(double relativeDisp, double storyHeight);

/// The same, and 0 for a story height that is not positive.
double StiffnessIndex(double relativeDisp, double storyHeight);
