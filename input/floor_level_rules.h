#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "input/lint_finding.h"

struct InputView;

/// What the FloorLevel line was meant to say.
struct MeantLevels {
    bool isUnreadable = false;  ///< there is a line, and another finding says why it is not read
    bool isSound = false;       ///< each level can be looked at by itself

    /// mm, ascending, each once; with the level that a forgotten comma drops. Empty: the levels
    /// come from the model.
    std::vector<double> levels;

    /// Number of stories; nothing when nobody can tell. `inModel`: when the levels come from there.
    std::optional<std::size_t> StoryCount(std::optional<std::size_t> inModel) const;
};

/// The values of the first FloorLevel line.
MeantLevels CheckFloorLevels(const InputView& view, LintFindingList& findings);
