#pragma once

#include <span>
#include <vector>

#include "route2/story_under_findings.h"

/// The records of one story member, one for each load case in their order; never empty.
using MemberRecords = std::span<const StoryMember>;

/// The story members in the records' order; a member named twice comes twice.
std::vector<MemberRecords> StoryMembersOf(const AijCodeRoute2& engine, const StoryInfo& story);

/// One entry per story member, in the records' order.
std::vector<MemberFindings> FormStoryMembers(const StoryUnderFindings& under);

/// One entry per member that the cutting plane meets and that is no story member of the story, in
/// the host's order. Asks for its forces and displacements.
std::vector<MemberFindings> FormCutNotCounted(const StoryUnderFindings& under);
