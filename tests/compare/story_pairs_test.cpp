#include "compare/story_pairs.h"

#include <gtest/gtest.h>

namespace {

// Stories between levels, mm, numbered from 1.
std::vector<StoryRead> Stories(const std::vector<double>& levels) {
    std::vector<StoryRead> stories;
    for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
        StoryRead story;
        story.number = static_cast<int>(i + 1);
        story.lowerLevel = levels[i];
        story.upperLevel = levels[i + 1];
        stories.push_back(story);
    }
    return stories;
}

// "1-1 2-2", a dash alone for what is missing.
std::string Pairs(const std::vector<double>& levelsA, const std::vector<double>& levelsB) {
    std::string text;
    for (const StoryPair& pair : PairStories(Stories(levelsA), Stories(levelsB))) {
        if (!text.empty()) text += " ";
        if (pair.a) text += std::to_string(*pair.a + 1);
        text += "-";
        if (pair.b) text += std::to_string(*pair.b + 1);
    }
    return text;
}

}  // namespace

TEST(StoryPairs, AreStoriesWhoseLevelsLieWithinTenMillimetres) {
    EXPECT_EQ("1-1 2-2", Pairs({0, 3500, 7000}, {0, 3510, 6990}));
}

// A mezzanine at 1700: what was story 2 is story 3 now.
TEST(StoryPairs, FollowTheLevelsWhereNumbersMove) {
    EXPECT_EQ("1-1 -2 2-3", Pairs({0, 3500, 7000}, {0, 1700, 3500, 7000}));
}

TEST(StoryPairs, FollowTheNumberWhereTheLevelsDiffer) {
    EXPECT_EQ("1-1 2-2", Pairs({0, 3500, 7000}, {0, 3600, 7200}));
}

TEST(StoryPairs, LeaveWhatWasRemovedWhereItWas) {
    // The lowest story is gone: the others follow their levels, and story 1 finds nobody.
    EXPECT_EQ("1- 2-1 3-2", Pairs({0, 3500, 7000, 10500}, {3500, 7000, 10500}));
    EXPECT_EQ("1-1 2-2 3-", Pairs({0, 3500, 7000, 10500}, {0, 3500, 7000}));
}

TEST(StoryPairs, OfNothingAreNone) {
    EXPECT_EQ("", Pairs({}, {}));
    EXPECT_EQ("-1", Pairs({}, {0, 3000}));
}
