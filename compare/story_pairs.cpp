#include "compare/story_pairs.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSameLevel = 10.0;  // mm

bool HaveSameLevels(const StoryRead& a, const StoryRead& b) {
    return std::abs(a.lowerLevel - b.lowerLevel) <= kSameLevel &&
           std::abs(a.upperLevel - b.upperLevel) <= kSameLevel;
}

bool HaveSameNumber(const StoryRead& a, const StoryRead& b) {
    return a.number == b.number;
}

// For each story of `b` that has none yet, the first free story of `a` that is the same.
template <typename IsSame>
void Match(const std::vector<StoryRead>& a, const std::vector<StoryRead>& b, const IsSame& isSame,
           std::vector<bool>& isTaken, std::vector<std::optional<std::size_t>>& partners) {
    for (std::size_t i = 0; i < b.size(); ++i) {
        if (partners[i]) continue;
        for (std::size_t j = 0; j < a.size(); ++j) {
            if (isTaken[j] || !isSame(a[j], b[i])) continue;
            isTaken[j] = true;
            partners[i] = j;
            break;
        }
    }
}

}  // namespace

std::vector<StoryPair> PairStories(const std::vector<StoryRead>& a,
                                   const std::vector<StoryRead>& b) {
    std::vector<bool> isTaken(a.size());
    std::vector<std::optional<std::size_t>> partners(b.size());
    Match(a, b, HaveSameLevels, isTaken, partners);
    Match(a, b, HaveSameNumber, isTaken, partners);
    std::vector<StoryPair> pairs;
    for (std::size_t i = 0; i < b.size(); ++i)
        pairs.push_back({partners[i], i});
    for (std::size_t j = 0; j < a.size(); ++j) {
        if (isTaken[j]) continue;
        const auto isAbove = [&](const StoryPair& pair) {
            const StoryRead& story = pair.b ? b[*pair.b] : a[*pair.a];
            return story.lowerLevel > a[j].lowerLevel;
        };
        pairs.insert(std::ranges::find_if(pairs, isAbove), {j, std::nullopt});
    }
    return pairs;
}
