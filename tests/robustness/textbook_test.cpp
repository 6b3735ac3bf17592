// The engine against a second calculation by the formulas of the textbooks, on thousands of random
// buildings. Where the two differ on purpose is told in docs/intended-oddities.md.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/support/checked_building.h"
#include "tests/support/random_building.h"
#include "tests/support/test_folder.h"
#include "tests/support/textbook_calculation.h"

namespace {

constexpr std::uint64_t kBuildings = 2000;

// The engine turns member axes with ten digits of pi, and sums in another order.
constexpr double kTolerance = 1e-8;

void ExpectClose(double textbook, double engine, double size, const char* what) {
    EXPECT_LE(std::abs(textbook - engine), kTolerance * size)
        << what << ": textbook " << textbook << ", engine " << engine;
}

// The drifts that the engine does not treat otherwise on purpose: those of at least 0.01 mm.
bool HasSmallDrift(const TextbookStory::Drift& drift) {
    return drift.largest < 1.0;
}

class Textbook : public testing::Test {
protected:
    // Hands every building's stories to `check`: the textbook's, the engine's and its engine.
    template <typename Check>
    void ForEachStory(const Check& check) {
        for (std::uint64_t seed = 1; seed <= kBuildings && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            const Building building = RandomBuilding(seed);
            const auto textbook = CalculateByTextbook(building);
            const CheckedBuilding checked(building, folder_);
            ASSERT_EQ(textbook.size(), checked.Stories().size());
            for (std::size_t i = 0; i < textbook.size(); ++i)
                check(textbook[i], checked.Stories()[i], checked.engine);
        }
    }

    TestFolder folder_;
};

TEST_F(Textbook, AgreesOnFloorsAndStoryMembers) {
    ForEachStory([](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2&) {
        ExpectClose(textbook.lowerLevel, story.lowerLevel, 1e4, "lower level");
        ExpectClose(textbook.upperLevel, story.upperLevel, 1e4, "upper level");
        std::vector<std::int32_t> members;
        for (const StoryMember& record : story.members)
            if (members.empty() || members.back() != record.memberNumber)
                members.push_back(record.memberNumber);
        EXPECT_EQ(textbook.members, members);
    });
}

TEST_F(Textbook, AgreesOnTheMeanDriftOfEveryLoadCase) {
    ForEachStory(
        [](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2& engine) {
            for (std::size_t i = 0; i < engine.loadCaseNumbers.size(); ++i) {
                const std::int32_t loadCase = engine.loadCaseNumbers[i];
                // A member's drift below 0.01 mm counts as none, which moves a mean by less than
                // that.
                EXPECT_NEAR(textbook.driftX.at(loadCase).mean,
                            story.meanRelativeDispByLoadCase[kX][i], 0.01);
                EXPECT_NEAR(textbook.driftZ.at(loadCase).mean,
                            story.meanRelativeDispByLoadCase[kZ][i], 0.01);
                if (loadCase == engine.earthquakeLoadCaseNumber[kX])
                    ExpectClose(textbook.driftX.at(loadCase).mean,
                                story.meanRelativeDispByLoadCase[kX][i], 10.0, "X earthquake");
                if (loadCase == engine.earthquakeLoadCaseNumber[kZ])
                    ExpectClose(textbook.driftZ.at(loadCase).mean,
                                story.meanRelativeDispByLoadCase[kZ][i], 10.0, "Z earthquake");
            }
        });
}

TEST_F(Textbook, AgreesOnTheLargestDriftWhereAllMembersGoForward) {
    int compared = 0;
    ForEachStory(
        [&](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2& engine) {
            for (std::size_t i = 0; i < engine.loadCaseNumbers.size(); ++i) {
                const auto& x = textbook.driftX.at(engine.loadCaseNumbers[i]);
                const auto& z = textbook.driftZ.at(engine.loadCaseNumbers[i]);
                if (x.allForward && !HasSmallDrift(x)) {
                    ExpectClose(x.largest, story.maxRelativeDispByLoadCase[kX][i], 10.0, "X");
                    ++compared;
                }
                if (z.allForward && !HasSmallDrift(z)) {
                    ExpectClose(z.largest, story.maxRelativeDispByLoadCase[kZ][i], 10.0, "Z");
                    ++compared;
                }
            }
        });
    EXPECT_GT(compared, 2000);
}

TEST_F(Textbook, AgreesOnTheStiffnessRatioUnderTheEarthquakes) {
    ForEachStory(
        [](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2& engine) {
            const double height = story.upperLevel - story.lowerLevel;
            for (std::size_t i = 0; i < engine.loadCaseNumbers.size(); ++i) {
                const std::int32_t loadCase = engine.loadCaseNumbers[i];
                if (loadCase == engine.earthquakeLoadCaseNumber[kX])
                    ExpectClose(textbook.stiffnessRatioX.at(loadCase),
                                StiffnessRatioX(story.meanRelativeDispByLoadCase[kX][i] / height,
                                                engine.rsBarOfMeanDispByLoadCase[kX][i]),
                                1.0, "X");
                if (loadCase == engine.earthquakeLoadCaseNumber[kZ])
                    ExpectClose(textbook.stiffnessRatioZ.at(loadCase),
                                StiffnessRatioZ(story.meanRelativeDispByLoadCase[kZ][i] / height,
                                                engine.rsBarOfMeanDispByLoadCase[kZ][i]),
                                1.0, "Z");
            }
        });
}

TEST_F(Textbook, AgreesOnTheCenterOfGravity) {
    ForEachStory([](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2&) {
        ExpectClose(textbook.gravityCenter.x, story.gravityCenter[kX], 1e4, "X");
        ExpectClose(textbook.gravityCenter.z, story.gravityCenter[kZ], 1e4, "Z");
    });
}

TEST_F(Textbook, AgreesOnTheShearOfEveryStoryMember) {
    ForEachStory([](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2&) {
        for (const StoryMember& record : story.members) {
            ExpectClose(textbook.shearX.at(record.memberNumber), record.shearForce[kX], 1e3, "X");
            ExpectClose(textbook.shearZ.at(record.memberNumber), record.shearForce[kZ], 1e3, "Z");
        }
    });
}

TEST_F(Textbook, AgreesOnTheCenterOfRigidity) {
    ForEachStory([](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2&) {
        ExpectClose(textbook.rigidityCenter.x, story.rigidityCenter[kX], 1e4, "X");
        ExpectClose(textbook.rigidityCenter.z, story.rigidityCenter[kZ], 1e4, "Z");
    });
}

TEST_F(Textbook, AgreesOnTheEccentricityModulus) {
    ForEachStory([](const TextbookStory& textbook, const StoryInfo& story, const AijCodeRoute2&) {
        ExpectClose(textbook.eccentricityModulusX, story.eccentricityModulus[kX], 1.0, "X");
        ExpectClose(textbook.eccentricityModulusZ, story.eccentricityModulus[kZ], 1.0, "Z");
    });
}

}  // namespace
