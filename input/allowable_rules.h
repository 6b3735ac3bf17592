#pragma once

#include <cstddef>
#include <optional>

#include "input/lint_finding.h"

struct Blocks;
struct InputView;

/// The allowable values. `storyCount`: nothing when nobody can tell.
void CheckAllowables(const InputView& view, const Blocks& blocks,
                     std::optional<std::size_t> storyCount, LintFindingList& findings);
