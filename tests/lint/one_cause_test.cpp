// One cause is one finding: what follows from a mistake is not told beside it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "input/input_check.h"
#include "tests/support/load_case_lines.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Ids of errors and warnings in their order.
std::vector<std::string> Told(const std::string& text) {
    std::vector<std::string> ids;
    for (const LintFinding& finding : CheckInputText(InputText(text)).findings)
        if (finding.rule->kind != LintKind::kNote) ids.emplace_back(finding.rule->id);
    return ids;
}

std::vector<std::string> ToldBehindCases(const std::string& text) {
    return Told(kLoadCaseLines + text);
}

const LintFinding& Only(const InputCheck& check) {
    EXPECT_EQ(1u, check.findings.size());
    return check.findings.front();
}

}  // namespace

TEST(OneCause, AKeywordThatIsNotRecognisedIsNotMissingToo) {
    EXPECT_THAT(Told("Deadloadcasenumber,1,\n EarthquakeLoadCaseNumber,2,3,\nFIN\n"),
                ElementsAre("K01", "K02"));
    EXPECT_THAT(Told("DeadLoadCaseNumber,1,\nFIN\nEarthquakeLoadCaseNumber,2,3,\n"),
                ElementsAre("F05"));
}

TEST(OneCause, StoryLinesBelowAKeywordThatIsNotRecognisedBelongToIt) {
    EXPECT_THAT(ToldBehindCases("StoryMembers,\n1,101,\n2,102,\nFIN\n"), ElementsAre("K01"));
    EXPECT_THAT(ToldBehindCases("StoryMember,\n1,101,\nAllowStoryDeformAngl,\n1,0.005,\nFIN\n"),
                ElementsAre("K01"));
}

TEST(OneCause, AFullWidthStoryNumberIsNotAlsoTheEndOfItsBlock) {
    EXPECT_THAT(ToldBehindCases("StoryMember,\n１,101,\n2,102,\nFIN\n"), ElementsAre("F09"));
}

TEST(OneCause, AStoryLineWithABlankInFrontIsAlsoTheEndOfItsBlockWhenOthersFollow) {
    EXPECT_THAT(ToldBehindCases("StoryMember,\n 1,101,\n 2,102,\nFIN\n"), ElementsAre("S10"));
    EXPECT_THAT(ToldBehindCases("StoryMember,\n1,101,\n 2,102,\n3,103,\nFIN\n"),
                ElementsAre("S10", "S04"));
    EXPECT_THAT(ToldBehindCases("AllowStoryDeformAngle,\n1,0.005,\n 2,0.005,\n3,0.005,\nFIN\n"),
                ElementsAre("S10", "A09"));
}

TEST(OneCause, EmptyLinesStraightBehindTheKeywordOfABlockAreNoFinding) {
    EXPECT_THAT(
        ToldBehindCases("StoryMember,\n\n1,101,\nAllowStoryDeformAngle,\n\n1,0.005,\nFIN\n"),
        IsEmpty());
    EXPECT_THAT(ToldBehindCases("StoryMember,\n1,101,\nStoryMember,\n2,102,\nFIN\n"), IsEmpty());
}

TEST(OneCause, ALevelThatAForgottenCommaDropsIsCountedForTheStories) {
    // Three stories are meant; the run has two.
    EXPECT_THAT(ToldBehindCases("FloorLevel,0,3500,7000,10500\nStoryMember,\n1,1,\n2,2,\n3,3,\n"
                                "AllowStoryStiffRatio,\n3,0.6,\nFIN\n"),
                ElementsAre("V01"));
}

TEST(OneCause, ALevelThatIsNoNumberHidesWhatFollowsFromIt) {
    EXPECT_THAT(ToldBehindCases("FloorLevel,0,45OO,\nFIN\n"), ElementsAre("V03"));
}

TEST(OneCause, EqualStoryHeightsAreNeitherRepeatsNorMetres) {
    EXPECT_THAT(ToldBehindCases("FloorLevel,3500,3500,3500,\nFIN\n"), ElementsAre("V05"));
}

TEST(OneCause, StoryHeightsInMetresAreTwoMistakes) {
    EXPECT_THAT(ToldBehindCases("FloorLevel,4.5,3.6,3.6,\nFIN\n"), ElementsAre("V05", "V04"));
}

TEST(OneCause, EqualCasesAreNotToldOfCasesThatAreNoNumbers) {
    EXPECT_THAT(Told("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,EX,EY,\nFIN\n"),
                ElementsAre("L04", "L04"));
    EXPECT_THAT(Told("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2\n\nFIN\n"),
                ElementsAre("L02"));
}

TEST(OneCause, TheDefaultCasesAreNotToldToBeTheDeadLoadCaseToo) {
    EXPECT_THAT(Told("DeadLoadCaseNumber,1,\nFIN\n"), ElementsAre("K06"));
    EXPECT_THAT(Told("EarthquakeLoadCaseNumber,1,2,\nFIN\n"), ElementsAre("K05"));
}

TEST(OneCause, ARepeatThatChangesNothingIsNoFinding) {
    // Both cases are 2 already; the second line repeats what the first one has done.
    EXPECT_THAT(Told("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,2,\n\nFIN\n"),
                ElementsAre("L05"));
    EXPECT_THAT(ToldBehindCases("\n\nFIN\n"), ElementsAre("L01"));
}

TEST(OneCause, ALineThatWasMeantAsFinIsNoRemarkAndRepeatsNothing) {
    EXPECT_THAT(ToldBehindCases("fin\n"), ElementsAre("F03"));
    const InputCheck check = CheckInputText(InputText(std::string(kLoadCaseLines) + "#,\nEND\n"));
    EXPECT_FALSE(HasFinding(check.findings, "F02"));
    EXPECT_EQ(4u, check.findings.back().place.line);
}

TEST(OneCause, AFileOfAnotherKindHasNoOtherFinding) {
    EXPECT_THAT(Told("\xFF\xFE"
                     "D\0\n\0"),
                ElementsAre("F06"));
    EXPECT_THAT(Told("DeadLoadCaseNumber,1,\rFIN\r"), ElementsAre("F08"));
    EXPECT_THAT(Told("ORVEK results are available.\n"), ElementsAre("F15"));
}

TEST(OneCause, TheRestOfALongLineDoesNotAlsoEndTheBlock) {
    // 199 characters end right behind a comma; the rest begins with a letter.
    std::string line = "1,";
    while (line.size() < 199)
        line += line.size() % 4 == 1 ? "," : "7";
    EXPECT_THAT(ToldBehindCases("StoryMember,\n" + line + "x,\n2,102,\nFIN\n"),
                testing::Not(testing::Contains("S04")));
}

TEST(SameFinding, AtSeveralPlacesIsOneWithTheFirstPlace) {
    const InputCheck check =
        CheckInputText(InputText("one,\n" + std::string(kLoadCaseLines) + "two,\nthree,\nFIN\n"));
    const LintFinding& remark = Only(check);
    EXPECT_EQ("K04", remark.rule->id);
    EXPECT_EQ(1u, remark.place.line);
    EXPECT_EQ(2u, remark.furtherCount);
}

TEST(SameFinding, JoinsItsStories) {
    const InputCheck check = CheckInputText(InputText(
        std::string(kLoadCaseLines) + "AllowStoryDeformAngle,\n1,1/200,\n2,1/200,\nFIN\n"));
    EXPECT_THAT(Only(check).stories, ElementsAre(1, 2));
}

TEST(SameFinding, WithOtherWordsIsAnother) {
    EXPECT_THAT(ToldBehindCases("StoryMember,\n1,101\n2,102\nFIN\n"), ElementsAre("S01", "S01"));
}

TEST(SameFinding, IsNeverHiddenByAnyNumberOfAnotherKind) {
    std::string text = kLoadCaseLines;
    for (int i = 0; i < 5000; ++i)
        text += "SheetNotes" + std::to_string(i) + ",\n";
    const InputCheck check = CheckInputText(InputText(text + "MemberDeformAngle,101\nFIN\n"));
    EXPECT_EQ("D01", check.findings.back().rule->id);
    EXPECT_EQ(3000u, check.findingsLeftOut);
}
