#pragma once

#include <vector>

#include "route2/story_under_findings.h"

// The figures of a story's two directions, check by check. Each fills in its own fields of `found`,
// whose members have been formed.

/// What the load cases are seen to do: vertical force in an earthquake case, shear in the dead one.
void FormLoads(const StoryUnderFindings& under, StoryFindings& found);

/// Whether the story's upper floor moves as one piece.
void FormFloorMotion(const StoryUnderFindings& under, StoryFindings& found);
void FormShears(const StoryUnderFindings& under, StoryFindings& found);
void FormDrifts(const StoryUnderFindings& under, StoryFindings& found);
void FormStiffnessRatios(const StoryUnderFindings& under, StoryFindings& found);
void FormEccentricity(const StoryUnderFindings& under, StoryFindings& found);

/// The two reference ratios, which need the other stories: call when all stories have their shears,
/// drifts and stiffness.
void FormReferenceRatios(std::vector<StoryFindings>& stories);

/// What keeps a story without drifts in a direction; nothing where it has them. `isFormed`: the
/// step that forms the value came to its end.
std::optional<WhyUndetermined> WhyNoDrift(const StoryUnderFindings& under,
                                          const StoryFindings& found, std::size_t axis,
                                          bool isFormed);

/// What each floor adds to the weight and to the story shears: call when all stories have theirs.
void FormFloorDifferences(std::vector<StoryFindings>& stories);
