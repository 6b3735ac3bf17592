#pragma once

#include <cstdint>
#include <vector>

#include "route2/node_table.h"
#include "route2/records.h"

/// Whether a member whose ends lie at these heights (mm) runs from the story's lower floor to its
/// upper one, less than 0.1 mm beside each.
bool RunsBetweenFloors(const StoryInfo& story, double lowerHeight, double upperHeight);

/// A story member's record without a load case; its plan position is that of the lower node.
StoryMember MakeStoryMember(std::int32_t member, std::int32_t lowerNode, std::int32_t upperNode,
                            const Vec3& lowerPoint, bool zIsVertical);

/// Appends one copy of `record` for each load case, in their order.
void AddForEachLoadCase(StoryInfo& story, StoryMember record,
                        const std::vector<std::int32_t>& loadCaseNumbers);
