#include "report/flat_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

namespace {

Findings TwoStories() {
    Findings findings;
    findings.axisKnown = true;
    findings.loadCases.earthquake = {2, 3};
    for (const int number : {1, 2}) {
        StoryFindings& story = findings.stories.emplace_back();
        story.number = number;
        story.members.emplace_back().number = 100 + number;
    }
    return findings;
}

// Lines without their CR LF.
std::vector<std::string> LinesOf(const std::string& table) {
    std::vector<std::string> lines;
    std::istringstream text(table);
    for (std::string line; std::getline(text, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << line;
        line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

TEST(FlatTable, BeginsWithAByteOrderMarkAndItsHeadings) {
    EXPECT_THAT(FlatTable({}), StartsWith("\xEF\xBB\xBF階 Story,方向 Direction,"));
    EXPECT_THAT(LinesOf(FlatTable({})), SizeIs(1));
}

TEST(FlatTable, HasOneRowPerStoryAndDirectionTopStoryFirst) {
    const std::vector<std::string> lines = LinesOf(FlatTable(TwoStories()));
    ASSERT_THAT(lines, SizeIs(5));
    EXPECT_THAT(lines[1], StartsWith("2,X,2,"));
    EXPECT_THAT(lines[2], StartsWith("2,Z,3,"));
    EXPECT_THAT(lines[3], StartsWith("1,X,2,"));
}

TEST(FlatTable, HasAsManyCellsInEveryRowAsHeadings) {
    const std::vector<std::string> lines = LinesOf(FlatTable(TwoStories()));
    for (const std::string& line : lines)
        EXPECT_EQ(std::ranges::count(lines[0], ','), std::ranges::count(line, ','));
}

TEST(FlatTable, WritesPlainDecimalsAndNothingForWhatWasNotFormed) {
    Findings findings = TwoStories();
    findings.stories[1].directions[kX].storyShear = 1.5e-7;
    findings.stories[1].weightAbove = 1e22;
    const std::string row = LinesOf(FlatTable(findings))[1];
    EXPECT_THAT(row, HasSubstr(",0.00000015,"));
    EXPECT_THAT(row, HasSubstr(",10000000000000000000000,"));
    EXPECT_THAT(row, HasSubstr(",,"));
    EXPECT_EQ(std::string::npos, row.find("e+"));
}

TEST(FlatTable, ListsMembersThatAreNotCountedInOneCell) {
    Findings findings = TwoStories();
    findings.stories[1].cutNotCounted.resize(2);
    findings.stories[1].cutNotCounted[0].number = 4;
    findings.stories[1].cutNotCounted[1].number = 11;
    EXPECT_THAT(LinesOf(FlatTable(findings))[1], HasSubstr(",4 11,"));
}

TEST(FlatMemberTable, HasOneRowPerStoryMember) {
    Findings findings = TwoStories();
    findings.stories[1].members[0].upright = true;
    findings.stories[1].members[0].drift = {7.25, std::nullopt};
    const std::vector<std::string> lines = LinesOf(FlatMemberTable(findings));
    ASSERT_THAT(lines, SizeIs(3));
    EXPECT_EQ("2,102,yes,0,0,,,,7.25,,,", lines[1]);
    EXPECT_EQ("1,101,no,0,0,,,,,,,", lines[2]);
}

}  // namespace
