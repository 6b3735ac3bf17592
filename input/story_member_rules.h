#pragma once

#include <cstddef>
#include <optional>

#include "input/lint_finding.h"

struct Blocks;
struct InputView;

/// The story lines of the StoryMember block. `storyCount`: nothing when nobody can tell.
void CheckStoryMembers(const InputView& view, const Blocks& blocks,
                       std::optional<std::size_t> storyCount, LintFindingList& findings);
