#pragma once

#include <optional>
#include <vector>

#include "compare/figures_file.h"

/// A story of one run, of the other one, or of both: places in the lists of their stories.
struct StoryPair {
    std::optional<std::size_t> a;
    std::optional<std::size_t> b;
};

/// Stories are the same where both levels lie within 10 mm; of those that find no such partner,
/// where they have the same number. All others were removed or added. In the order of b's stories,
/// lowest first; what was removed stands where it was.
std::vector<StoryPair> PairStories(const std::vector<StoryRead>& a,
                                   const std::vector<StoryRead>& b);
