// The engine against a second calculation by the formulas of the textbooks, on thousands of random
// buildings. Where the two differ on purpose is told in docs/intended-oddities.md.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tests/support/checked_building.h"
#include "tests/support/random_building.h"
#include "tests/support/test_folder.h"
#include "tests/support/textbook_calculation.h"

namespace {

using testing::IsEmpty;

constexpr std::uint64_t kBuildings = 2000;

// The engine turns member axes with ten digits of pi, and sums in another order.
constexpr double kTolerance = 1e-8;

// A member's drift below 0.01 mm counts as none, which moves a mean by less than that.
constexpr double kDriftThatCountsAsNone = 0.01;

// One quantity in the two calculations, over all buildings.
class Comparison {
public:
    void Begin(const std::string& place) { place_ = place; }

    // Of values of about this size.
    void Close(double textbook, double engine, double size, const char* what) {
        Near(textbook, engine, kTolerance * size, what);
    }

    void Near(double textbook, double engine, double tolerance, const char* what) {
        Record(std::abs(textbook - engine) <= tolerance, textbook, engine, what);
    }

    template <typename Values>
    void Equal(const Values& textbook, const Values& engine, const char* what) {
        Record(textbook == engine, textbook, engine, what);
    }

    int Compared() const { return compared_; }

    /// The first ones; more would tell nothing new.
    const std::vector<std::string>& Differences() const { return differences_; }

private:
    template <typename Values>
    void Record(bool same, const Values& textbook, const Values& engine, const char* what) {
        ++compared_;
        if (same || differences_.size() == 10) return;
        differences_.push_back(place_ + ", " + what + ": textbook " +
                               testing::PrintToString(textbook) + ", engine " +
                               testing::PrintToString(engine));
    }

    std::string place_;
    int compared_ = 0;
    std::vector<std::string> differences_;
};

// Compares one quantity of one story.
using Compare = void (*)(Comparison& comparison, const TextbookStory& textbook,
                         const StoryInfo& story, const AijCodeRoute2& engine);

void FloorsAndStoryMembers(Comparison& comparison, const TextbookStory& textbook,
                           const StoryInfo& story, const AijCodeRoute2&) {
    comparison.Close(textbook.lowerLevel, story.lowerLevel, 1e4, "lower level");
    comparison.Close(textbook.upperLevel, story.upperLevel, 1e4, "upper level");
    std::vector<std::int32_t> members;
    for (const StoryMember& record : story.members)
        if (members.empty() || members.back() != record.memberNumber)
            members.push_back(record.memberNumber);
    comparison.Equal(textbook.members, members, "story members");
}

void MeanDrift(Comparison& comparison, const TextbookStory& textbook, const StoryInfo& story,
               const AijCodeRoute2& engine) {
    for (std::size_t i = 0; i < engine.loadCaseNumbers.size(); ++i) {
        const std::int32_t loadCase = engine.loadCaseNumbers[i];
        const double x = textbook.driftX.at(loadCase).mean;
        const double z = textbook.driftZ.at(loadCase).mean;
        comparison.Near(x, story.meanRelativeDispByLoadCase[kX][i], kDriftThatCountsAsNone, "X");
        comparison.Near(z, story.meanRelativeDispByLoadCase[kZ][i], kDriftThatCountsAsNone, "Z");
        if (loadCase == engine.earthquakeLoadCaseNumber[kX])
            comparison.Close(x, story.meanRelativeDispByLoadCase[kX][i], 10.0, "X earthquake");
        if (loadCase == engine.earthquakeLoadCaseNumber[kZ])
            comparison.Close(z, story.meanRelativeDispByLoadCase[kZ][i], 10.0, "Z earthquake");
    }
}

// Where members go back, or hardly go at all, the engine finds something else on purpose.
void LargestDriftWhereAllMembersGoForward(Comparison& comparison, const TextbookStory& textbook,
                                          const StoryInfo& story, const AijCodeRoute2& engine) {
    for (std::size_t i = 0; i < engine.loadCaseNumbers.size(); ++i) {
        const auto& x = textbook.driftX.at(engine.loadCaseNumbers[i]);
        const auto& z = textbook.driftZ.at(engine.loadCaseNumbers[i]);
        if (x.allForward && x.largest >= kDriftThatCountsAsNone)
            comparison.Close(x.largest, story.maxRelativeDispByLoadCase[kX][i], 10.0, "X");
        if (z.allForward && z.largest >= kDriftThatCountsAsNone)
            comparison.Close(z.largest, story.maxRelativeDispByLoadCase[kZ][i], 10.0, "Z");
    }
}

void StiffnessRatioUnderTheEarthquakes(Comparison& comparison, const TextbookStory& textbook,
                                       const StoryInfo& story, const AijCodeRoute2& engine) {
    const double height = story.upperLevel - story.lowerLevel;
    for (std::size_t i = 0; i < engine.loadCaseNumbers.size(); ++i) {
        const std::int32_t loadCase = engine.loadCaseNumbers[i];
        if (loadCase == engine.earthquakeLoadCaseNumber[kX])
            comparison.Close(textbook.stiffnessRatioX.at(loadCase),
                             StiffnessRatioX(story.meanRelativeDispByLoadCase[kX][i] / height,
                                             engine.rsBarOfMeanDispByLoadCase[kX][i]),
                             1.0, "X");
        if (loadCase == engine.earthquakeLoadCaseNumber[kZ])
            comparison.Close(textbook.stiffnessRatioZ.at(loadCase),
                             StiffnessRatioZ(story.meanRelativeDispByLoadCase[kZ][i] / height,
                                             engine.rsBarOfMeanDispByLoadCase[kZ][i]),
                             1.0, "Z");
    }
}

void CenterOfGravity(Comparison& comparison, const TextbookStory& textbook, const StoryInfo& story,
                     const AijCodeRoute2&) {
    comparison.Close(textbook.gravityCenter.x, story.gravityCenter[kX], 1e4, "X");
    comparison.Close(textbook.gravityCenter.z, story.gravityCenter[kZ], 1e4, "Z");
}

void ShearOfEveryStoryMember(Comparison& comparison, const TextbookStory& textbook,
                             const StoryInfo& story, const AijCodeRoute2&) {
    for (const StoryMember& record : story.members) {
        comparison.Close(textbook.shearX.at(record.memberNumber), record.shearForce[kX], 1e3, "X");
        comparison.Close(textbook.shearZ.at(record.memberNumber), record.shearForce[kZ], 1e3, "Z");
    }
}

void CenterOfRigidity(Comparison& comparison, const TextbookStory& textbook, const StoryInfo& story,
                      const AijCodeRoute2&) {
    comparison.Close(textbook.rigidityCenter.x, story.rigidityCenter[kX], 1e4, "X");
    comparison.Close(textbook.rigidityCenter.z, story.rigidityCenter[kZ], 1e4, "Z");
}

void EccentricityModulus(Comparison& comparison, const TextbookStory& textbook,
                         const StoryInfo& story, const AijCodeRoute2&) {
    comparison.Close(textbook.eccentricityModulusX, story.eccentricityModulus[kX], 1.0, "X");
    comparison.Close(textbook.eccentricityModulusZ, story.eccentricityModulus[kZ], 1.0, "Z");
}

class Textbook : public testing::Test {
protected:
    // Each building is calculated once, for all comparisons.
    static void SetUpTestSuite() {
        for (const Compare compare :
             {FloorsAndStoryMembers, MeanDrift, LargestDriftWhereAllMembersGoForward,
              StiffnessRatioUnderTheEarthquakes, CenterOfGravity, ShearOfEveryStoryMember,
              CenterOfRigidity, EccentricityModulus})
            comparisons_[compare];
        const TestFolder folder;
        for (std::uint64_t seed = 1; seed <= kBuildings && !HasFatalFailure(); ++seed)
            CompareBuilding(seed, folder);
    }

    static void TearDownTestSuite() { comparisons_.clear(); }

    static void CompareBuilding(std::uint64_t seed, const TestFolder& folder) {
        const std::string place = "seed " + std::to_string(seed);
        const Building building = RandomBuilding(seed);
        const auto textbook = CalculateByTextbook(building);
        const CheckedBuilding checked(building, folder);
        ASSERT_EQ(textbook.size(), checked.Stories().size()) << place;
        for (auto& [compare, comparison] : comparisons_) {
            for (std::size_t i = 0; i < textbook.size(); ++i) {
                comparison.Begin(place + ", story " + std::to_string(i + 1));
                compare(comparison, textbook[i], checked.Stories()[i], checked.engine);
            }
        }
    }

    // More were compared than there are buildings, and none differed.
    static void ExpectAgreementOn(Compare compare) {
        const Comparison& comparison = comparisons_.at(compare);
        EXPECT_THAT(comparison.Differences(), IsEmpty());
        EXPECT_GT(comparison.Compared(), static_cast<int>(kBuildings));
    }

private:
    static inline std::map<Compare, Comparison> comparisons_;
};

TEST_F(Textbook, AgreesOnFloorsAndStoryMembers) {
    ExpectAgreementOn(FloorsAndStoryMembers);
}

TEST_F(Textbook, AgreesOnTheMeanDriftOfEveryLoadCase) {
    ExpectAgreementOn(MeanDrift);
}

TEST_F(Textbook, AgreesOnTheLargestDriftWhereAllMembersGoForward) {
    ExpectAgreementOn(LargestDriftWhereAllMembersGoForward);
}

TEST_F(Textbook, AgreesOnTheStiffnessRatioUnderTheEarthquakes) {
    ExpectAgreementOn(StiffnessRatioUnderTheEarthquakes);
}

TEST_F(Textbook, AgreesOnTheCenterOfGravity) {
    ExpectAgreementOn(CenterOfGravity);
}

TEST_F(Textbook, AgreesOnTheShearOfEveryStoryMember) {
    ExpectAgreementOn(ShearOfEveryStoryMember);
}

TEST_F(Textbook, AgreesOnTheCenterOfRigidity) {
    ExpectAgreementOn(CenterOfRigidity);
}

TEST_F(Textbook, AgreesOnTheEccentricityModulus) {
    ExpectAgreementOn(EccentricityModulus);
}

}  // namespace
