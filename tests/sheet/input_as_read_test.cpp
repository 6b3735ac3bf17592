#include "sheet/input_as_read.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/run_findings.h"
#include "tests/support/small_building.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

InputAsRead Read(const std::string& input) {
    FakeHost host;
    AddSmallBuilding(host);
    const TestFolder folder;
    const InputCheck check = CheckInputFile(folder.Write("input.csv", input));
    return FormInputAsRead(check, FindingsOf(host, input));
}

// What is said of a line, in English.
std::vector<std::string> Of(const InputAsRead& input, std::size_t line) {
    std::vector<std::string> notes;
    for (const InputLineNote& note : input.notes)
        if (note.line == line) notes.push_back(note.en);
    return notes;
}

TEST(InputAsRead, SaysWhatEachLineSet) {
    const InputAsRead input = Read(
        "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFloorLevel,0,3500,\n"
        "StoryMember,\n1,1,2,3,4,\nAllowStoryDeformAngle,\n1,0.005,\nFIN\n");
    EXPECT_THAT(Of(input, 1), ElementsAre("dead load case = 1"));
    EXPECT_THAT(Of(input, 2), ElementsAre("earthquake cases X = 2, Z = 3"));
    EXPECT_THAT(Of(input, 3), ElementsAre("floors 0, 3,500"));
    EXPECT_THAT(Of(input, 4), ElementsAre("story members follow"));
    EXPECT_THAT(Of(input, 5), ElementsAre("story 1: 4 members"));
    EXPECT_THAT(Of(input, 7), ElementsAre("story 1: allowable angle = 1/200 (0.005)"));
    EXPECT_THAT(Of(input, 8), ElementsAre("end of the data"));
}

TEST(InputAsRead, NamesTheDefaultsOfWhatNoLineGives) {
    std::vector<std::string> defaults;
    for (const InputLineNote& note : Read("FIN\n").defaults)
        defaults.push_back(note.en);
    EXPECT_THAT(defaults, ElementsAre("dead load case = 1", "earthquake cases X = 1, Z = 1",
                                      "floor levels: model, 0, 3,500", "story members: model",
                                      "allowable angle = 1/200 (0.005), all stories",
                                      "allowable ratio = 0.6, all stories",
                                      "allowable modulus = 0.15, all stories"));
}

TEST(InputAsRead, SaysWhyALineIsNotRead) {
    const InputAsRead input = Read(
        "a word to the reader\n\nDeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFIN\n"
        "and behind\n");
    EXPECT_THAT(Of(input, 1), ElementsAre("not read: no keyword"));
    EXPECT_THAT(Of(input, 2), IsEmpty());
    EXPECT_THAT(Of(input, 6), SizeIs(1));  // in the words of the input check
}

TEST(InputAsRead, HasTheLinesInUtf8) {
    // 計画 in Shift_JIS
    const InputAsRead input = Read(
        "SheetProject,\x8C\x76\x89\xE6,\nDeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n"
        "FIN\n");
    EXPECT_EQ("SheetProject,計画,", input.lines.at(0));
    EXPECT_THAT(Of(input, 1), ElementsAre("line of this sheet"));
}

}  // namespace
