// Files as people write them who do not know the format yet: what is told, and where.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "input/input_check.h"

namespace {

using testing::ElementsAreArray;

struct WrongFile {
    const char* name;
    const char* text;
    std::vector<std::string> told;  // errors and warnings, as "id line:column"
};

const WrongFile kWrongFiles[] = {
    {"NumbersAreWrittenWithEqualsSigns",
     "DeadLoadCaseNumber=1\n"
     "EarthquakeLoadCaseNumber=2,3\n"
     "FIN\n",
     {"K01 1:1", "K01 2:1"}},
    {"TheKeywordStandsAboveItsLevels",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,\n"
     "0,4500,8100,\n"
     "FIN\n",
     {"V08 3:1"}},
    {"EachLevelHasALineOfItsOwn",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,\n"
     "FloorLevel,8100,\n"
     "FIN\n",
     {"K07 4:1"}},
    {"UnitsStandBehindTheLastLevel",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,mm\n"
     "FIN\n",
     {"V01 3:24"}},
    {"LevelsAreSeparatedBySemicolons",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel;0;4500;8100;\n"
     "FIN\n",
     {"F10 3:1"}},
    {"LevelsAreSeparatedByBlanks",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel 0 4500 8100\n"
     "FIN\n",
     // Without a comma the line repeats the one before: both earthquake cases become 3.
     {"K03 3:1"}},
    {"LevelsGoDownFromTheRoofInMetres",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,11.7,8.1,4.5,0,\n"
     "FIN\n",
     {"V04 3:1"}},
    {"ABasementLevelIsForgotten",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,-4000,,4500,\n"
     "FIN\n",
     {"V02 3:18"}},
    {"ThePenthouseIsTooLow",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,9600,\n"
     "FIN\n",
     {"V09 3:24"}},
    {"MembersAreGivenAsARange",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "StoryMember,\n"
     "1,101-104,\n"
     "2,201-204,\n"
     "FIN\n",
     {"S03 5:3", "S03 6:3"}},
    {"StoriesAreCountedFromZero",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "StoryMember,\n"
     "0,101,\n"
     "1,201,\n"
     "FIN\n",
     // Line 5 is no story line, and ends the block before story 1.
     {"S07 4:1", "S10 5:1", "S04 5:1"}},
    {"StoriesAreNamedLikeFloors",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "StoryMember,\n"
     "1F,101,\n"
     "2F,201,\n"
     "FIN\n",
     {"S10 5:1", "S10 6:1"}},
    {"ABlankLineStandsBetweenTheStories",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "StoryMember,\n"
     "1,101,\n"
     "\n"
     "2,201,\n"
     "FIN\n",
     {"S04 6:1"}},
    {"AFullWidthStoryNumberInTheMiddleOfABlock",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,11700,\n"
     "StoryMember,\n"
     "1,101,\n"
     "２,201,\n"
     "3,301,\n"
     "FIN\n",
     {"F09 6:1"}},
    {"MembersStandOnTheLineOfTheKeyword",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,\n"
     "StoryMember,1,101,102,\n"
     "FIN\n",
     {"S05 4:1"}},
    {"TheKeywordIsRepeatedWithMembersOnItsLine",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,\n"
     "StoryMember,\n"
     "StoryMember,1,102,\n"
     "1,101,\n"
     "FIN\n",
     {"A03 5:13"}},
    {"AHeadingStandsInTheBlock",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "StoryMember,\n"
     "story,members,\n"
     "1,101,\n"
     "2,201,\n"
     "FIN\n",
     {"S04 5:1"}},
    {"TheBlockIsInTwoPieces",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "StoryMember,\n"
     "1,101,\n"
     "AllowStoryStiffRatio,\n"
     "1,0.6,\n"
     "StoryMember,\n"
     "2,201,\n"
     "FIN\n",
     // The second keyword says why story 2 has no members.
     {"K07 8:1"}},
    {"AnAllowableAngleIsItsReciprocal",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "AllowStoryDeformAngle,\n"
     "1,200,\n"
     "2,120,\n"
     "FIN\n",
     {"A06 5:3", "A06 6:3"}},
    {"AllowableValuesStandBelowEachOtherWithoutStories",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "AllowStoryDeformAngle,\n"
     "0.005,\n"
     "0.005,\n"
     "FIN\n",
     {"S10 5:1"}},
    {"AValueOfAStoryIsForgotten",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "AllowStoryEccentricityModulus,\n"
     "1,0.15\n"
     "2\n"
     "FIN\n",
     {"A04 6:1"}},
    {"AllStoriesAreMeantByOneValue",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "AllowStoryDeformAngle,0.005,\n"
     "FIN\n",
     {"A03 4:23"}},
    {"ThePercentSignIsMeantForTheModulus",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "AllowStoryEccentricityModulus,\n"
     "1,15%,\n"
     "FIN\n",
     {"A02 5:3"}},
    {"TheGroundFloorIsCountedAsAStory",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FloorLevel,0,4500,8100,\n"
     "StoryMember,\n"
     "2,101,\n"
     "3,201,\n"
     "FIN\n",
     {"S07 4:1", "S06 6:1"}},
    {"BothDirectionsHaveALineOfTheirOwn",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,\n"
     "EarthquakeLoadCaseNumber,3,\n"
     "FIN\n",
     {"K07 2:1", "L03 3:28"}},
    {"LoadCasesAreNamedByTheirTitles",
     "DeadLoadCaseNumber,DL,\n"
     "EarthquakeLoadCaseNumber,EQX,EQY,\n"
     "FIN\n",
     {"L04 1:20", "L04 2:26", "L04 2:30"}},
    {"AnEmptyLineStandsBelowTheLoadCases",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "\n"
     "FloorLevel,0,4500,8100,\n"
     "FIN\n",
     {"L01 3:1"}},
    {"TheEndIsInSmallLetters",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "Fin\n",
     {"F03 3:1"}},
    {"TheTitleBeginsWithFinal",
     "FINAL DESIGN,\n"
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "FIN\n",
     {"F04 1:1"}},
    {"MembersToReportHaveNoFinalComma",
     "DeadLoadCaseNumber,1,\n"
     "EarthquakeLoadCaseNumber,2,3,\n"
     "MemberDeformAngle,101, 102\n"
     "FIN\n",
     {"D01 3:23"}},
    {"EveryWordIsInQuotes",
     "\"DeadLoadCaseNumber\",\"1\"\n"
     "\"EarthquakeLoadCaseNumber\",\"2\",\"3\"\n"
     "\"FIN\"\n",
     {"F11 1:1", "F11 2:1", "F03 3:1"}},
    {"ASpreadsheetPadsEveryRow",
     "DeadLoadCaseNumber,1,,,,\n"
     "EarthquakeLoadCaseNumber,2,3,,,\n"
     "FloorLevel,0,4500,8100,,\n"
     "StoryMember,,,,,\n"
     "1,101,102,,,\n"
     "2,201,202,,,\n"
     "FIN,,,,,\n",
     // Level 0 stands there anyway, but there is no member 0.
     {"S02 5:11", "S02 6:11"}},
};

class WrongFiles : public testing::TestWithParam<WrongFile> {};

}  // namespace

TEST_P(WrongFiles, AreToldWithTheirPlaces) {
    const InputCheck check = CheckInputText(InputText(GetParam().text));
    std::vector<std::string> told;
    for (const LintFinding& finding : check.findings) {
        if (finding.rule->kind == LintKind::kNote) continue;
        const std::size_t column = check.text.Column(finding.place.line, finding.place.offset);
        told.push_back(std::string(finding.rule->id) + ' ' + std::to_string(finding.place.line) +
                       ':' + std::to_string(column));
    }
    EXPECT_THAT(told, ElementsAreArray(GetParam().told));
}

INSTANTIATE_TEST_SUITE_P(ByHand, WrongFiles, testing::ValuesIn(kWrongFiles),
                         [](const auto& test) { return std::string(test.param.name); });
