// The corrected file.

#include "lint/suggestion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lint/lint.h"
#include "tests/support/load_case_lines.h"
#include "tests/support/random_input.h"
#include "tests/support/test_folder.h"
#include "tests/support/two_story_building.h"

namespace {

using testing::HasSubstr;
using testing::Not;

std::string SuggestedFor(const std::string& text) {
    const TestFolder folder;
    return LintFile(folder.Write("input.csv", text), WantsSuggestion::kYes).suggestion;
}

std::string SuggestedFor(FakeHost& host, const std::string& text) {
    const TestFolder folder;
    return LintAgainst(folder.Write("input.csv", text), {host, "", ""}, WantsSuggestion::kYes)
        .suggestion;
}

// What follows the comments.
std::string Lines(const std::string& suggestion) {
    std::string lines = suggestion;
    while (lines.starts_with("#"))
        lines.erase(0, lines.find('\n') + 1);
    return lines;
}

std::string ToldOf(const std::string& text) {
    std::string told;
    for (const LintFinding& finding : CheckInputText(InputText(text)).findings)
        if (finding.rule->kind != LintKind::kNote) told += std::string(finding.rule->id) + ' ';
    return told;
}

}  // namespace

TEST(Suggestion, HasTheCasesAsGivenTheListsWithTheirCommasAndFin) {
    EXPECT_EQ(
        std::string(kLoadCaseLines) + "FloorLevel,0,4500,8100,\nMemberDeformAngle,101,\nFIN\n",
        Lines(SuggestedFor(std::string(kLoadCaseLines) +
                           "FloorLevel,0,4500,8100\nMemberDeformAngle,101")));
}

TEST(Suggestion, PutsRightWhatHasOneWayToBeRight) {
    EXPECT_EQ(
        std::string(kLoadCaseLines) +
            "FloorLevel,0,4500,8100,11700,\nStoryMember,\n1,101,\n2,201,\n"
            "3,301,\nAllowStoryDeformAngle,\n1,0.008333,\nFIN\n",
        Lines(SuggestedFor("deadLoadCaseNumber,1,\n EarthquakeLoadCaseNumber,2,3,\n"
                           "FloorLevel，0，4,500，8100，11700\nStoryMember\n1,101\n\n 2,201,\n"
                           "03,301,\nAllowStoryDeformationAngle,\n1,1/120\nfin\n")));
}

TEST(Suggestion, AsksForCasesThatNobodyNamed) {
    EXPECT_THAT(SuggestedFor("FIN\n"), testing::AllOf(HasSubstr("# ? name the two earthquake"),
                                                      HasSubstr("EarthquakeLoadCaseNumber,?,?,")));
}

TEST(Suggestion, KeepsLinesOfTheCalculationSheet) {
    EXPECT_THAT(SuggestedFor("SheetProject,霞ヶ丘計画,\n" + std::string(kLoadCaseLines)),
                HasSubstr("SheetProject,霞ヶ丘計画,\n"));
}

TEST(Suggestion, HasReliefAsACommentOnly) {
    const std::string suggestion =
        SuggestedFor(std::string(kLoadCaseLines) + "FloorLevel,0,3500,\nFIN\n");
    EXPECT_THAT(suggestion, HasSubstr("# relief: 1,0.008333,\n"));
    EXPECT_THAT(Lines(suggestion), Not(HasSubstr("Allow")));
}

TEST(Suggestion, TakesTheFloorsOfTheModelWithoutItsLandings) {
    FakeHost host;
    BuildTwoStories(host);
    host.Node(91, 0, 1.7, 0).Node(92, 6, 1.7, 0).Member(901, 91, 92);
    EXPECT_EQ(std::string(kLoadCaseLines) + "FloorLevel,0,3500,7000,\nFIN\n",
              Lines(SuggestedFor(host, std::string(kLoadCaseLines) + "FIN\n")));
}

TEST(Suggestion, FindsTheCasesThatActAlongTheAxes) {
    FakeHost host;
    BuildTwoStories(host);
    const std::string suggestion = SuggestedFor(host, "FIN\n");
    EXPECT_THAT(suggestion, testing::AllOf(HasSubstr("# ? case 2 acts along X"),
                                           HasSubstr("# ? case 3 acts along Z")));
    EXPECT_EQ(std::string(kLoadCaseLines) + "FloorLevel,0,3500,7000,\nFIN\n", Lines(suggestion));
}

// A column 2 mm too high on both sides is as high as its story; one through both stories is not.
TEST(Suggestion, NamesTheMembersWhenTheSearchWouldMissSome) {
    FakeHost host;
    BuildTwoStories(host);
    host.Node(91, 3, 0.002, 0).Node(92, 3, 3.502, 0).Member(901, 91, 92).Member(902, 1, 21);
    const std::string suggestion = SuggestedFor(host, std::string(kLoadCaseLines) + "FIN\n");
    EXPECT_THAT(suggestion, HasSubstr("# story 1: cannot be counted: 902,\n"));
    EXPECT_THAT(suggestion, HasSubstr("StoryMember,\n1,101,102,103,104,901,\n2,201,"));
}

TEST(Suggestion, BreaksLongListsIntoLinesThatAreReadWhole) {
    std::string members = "1";
    for (int i = 0; i < 100; ++i)
        members += ',' + std::to_string(1000 + i);
    const std::string suggestion = SuggestedFor(
        std::string(kLoadCaseLines) + "FloorLevel,0,3500,\nStoryMember,\n" + members + ",\nFIN\n");
    EXPECT_EQ("", ToldOf(suggestion));
    EXPECT_THAT(suggestion, HasSubstr(",1099,\n"));
}

// Whatever was written, the suggestion has no mistake of the kinds that it puts right.
TEST(Suggestion, IsASoundFileForEveryHostileOne) {
    for (std::uint64_t seed = 1; seed <= 1000; ++seed) {
        const std::string suggestion = SuggestedFor(RandomInput(seed));
        const InputCheck check = CheckInputText(InputText(suggestion));
        EXPECT_TRUE(check.hasFin) << seed;
        for (const char* id : {"F03", "F05", "F09", "F10", "F11", "K01", "K02", "K03", "K05", "K06",
                               "K07", "L01", "V01", "V02", "S01", "S04", "A03", "A09", "D01"})
            EXPECT_FALSE(HasFinding(check.findings, id)) << seed << ' ' << id << '\n' << suggestion;
    }
}
