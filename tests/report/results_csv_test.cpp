#include "report/results_csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <sstream>
#include <stdexcept>

#include "log/formatted_print.h"
#include "tests/support/engine_bench.h"
#include "tests/support/run_log.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

constexpr const char* kDriftTitle = " -----  Story deformation angle  ----- ";
constexpr const char* kDriftHeader =
    "Story,Load,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),Relative story disp.(mm),"
    "Story deform angle,Allowable story deform angle,Result";
constexpr const char* kMemberTitle = " -----  Story deformation angle of specified member ----- ";
constexpr const char* kMemberHeader =
    "Story,Load,Member,Story height(mm),Direction,Story deform angle,Allowable story deform "
    "angle,Result";
constexpr const char* kRatioTitle = " -----  Story stiffness ratio  ----- ";
constexpr const char* kRatioHeader =
    "Story,Load,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),Relative story disp.(mm),"
    "Story stiffness ratio,Allowable story stiffness ratio,Result";
constexpr const char* kGravityTitle = " -----  Gravity center  ----- ";
constexpr const char* kGravityHeader =
    "Story,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),X coord of gravity center,"
    "Z(or Y) coord of gravity center";
constexpr const char* kRigidityTitle = " -----  Center of rigidity  ----- ";
constexpr const char* kRigidityHeader =
    "Story,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),X coord of rigidity center,"
    "Z(or Y) coord of rigidity center";
constexpr const char* kModulusTitle = " -----  Eccentricity modulus  ----- ";
constexpr const char* kModulusHeader =
    "Story,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),Eccentricity Mod(X),Eccentricity "
    "Mod(Z(or Y)),Allowable Eccenticity Mod,Result(X),Result(Z(or Y))";

using Lines = std::vector<std::string>;

// The results file: its text, and the rows below each header.
class Results {
public:
    explicit Results(const std::string& text) : text_(text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            lines_.push_back(line);
    }

    const std::string& text() const { return text_; }

    /// Rows of a block, of a section that has blocks: 0 is X Average, 1 X Max, 2 Z(or Y) Average,
    /// 3 Z(or Y) Max.
    Lines Block(const char* header, std::size_t block) const {
        std::size_t at = 0;
        for (std::size_t found = 0;; ++at)
            if (lines_.at(at) == header && found++ == block) break;
        Lines rows;
        while (++at < lines_.size() && !lines_[at].empty())
            rows.push_back(lines_[at]);
        return rows;
    }
    Lines Drift(std::size_t block) const { return Block(kDriftHeader, block); }
    Lines Members() const { return Block(kMemberHeader, 0); }
    Lines Ratios(std::size_t block) const { return Block(kRatioHeader, block); }
    Lines Gravity() const { return Block(kGravityHeader, 0); }
    Lines Rigidity() const { return Block(kRigidityHeader, 0); }
    Lines Moduli() const { return Block(kModulusHeader, 0); }

private:
    std::string text_;
    Lines lines_;
};

/// The last field of every row.
Lines Verdicts(const Lines& rows) {
    Lines verdicts;
    for (const std::string& row : rows)
        verdicts.push_back(row.substr(row.rfind(',') + 1));
    return verdicts;
}

/// A field of a row, from 0.
std::string Field(const std::string& row, std::size_t index) {
    std::istringstream fields(row);
    std::string field;
    for (std::size_t i = 0; i <= index; ++i)
        std::getline(fields, field, ',');
    return field;
}

/// The field of every row.
Lines Fields(const Lines& rows, std::size_t index) {
    Lines fields;
    for (const std::string& row : rows)
        fields.push_back(Field(row, index));
    return fields;
}

// An engine whose results are set by hand, under load case 7 alone unless told otherwise.
class Writer {
public:
    Writer() : bench(host) { SetLoadCases({7}); }

    AijCodeRoute2& engine() { return bench.engine; }

    void SetLoadCases(const std::vector<std::int32_t>& loadCases) {
        engine().loadCaseNumbers = loadCases;
        engine().numPrimaryLoadCases = static_cast<std::int32_t>(loadCases.size());
        for (auto* rsBars :
             {&engine().rsBarOfMaxDispByLoadCase, &engine().rsBarOfMeanDispByLoadCase})
            for (std::vector<double>& rsBar : *rsBars)
                rsBar.assign(loadCases.size(), 500.0);
        engine().rsBarOfMaxDisp = engine().rsBarOfMeanDisp = {500.0, 500.0};
    }

    /// A story from 0 to `height` mm with one member; every displacement is `disp` mm.
    StoryInfo& AddStory(double height, double disp) {
        StoryInfo& story = engine().stories.emplace_back();
        story.upperLevel = height;
        story.allowDeformAngle = 0.005;
        story.allowStiffRatio = 0.6;
        story.allowEccentricityModulus = 0.15;
        story.members.emplace_back().loadCaseNumber = 7;
        SetDisplacements(story, disp, disp);
        return story;
    }

    /// All mean and all maximum displacements, of both directions and every load case.
    void SetDisplacements(StoryInfo& story, double mean, double max) {
        const std::size_t count = engine().loadCaseNumbers.size();
        story.meanRelativeDisp = {mean, mean};
        story.maxRelativeDisp = {max, max};
        for (const std::size_t axis : {kX, kZ}) {
            story.meanRelativeDispByLoadCase[axis].assign(count, mean);
            story.maxRelativeDispByLoadCase[axis].assign(count, max);
        }
    }

    Results Write() {
        engine().PrintStoryInfoCsv();
        return Results(bench.folder.Read("model.aijR2Result.csv"));
    }

    FakeHost host;
    EngineBench bench;
};

constexpr const char* kDriftRow = "1,7,0.000e+00,3.500e+03,3.500e+03,";

}  // namespace

TEST(ResultsCsv, WithoutStoriesHoldsSixTitlesAndEveryHeader) {
    const std::string drift = std::string(kDriftHeader) + "\n";
    const std::string ratio = std::string(kRatioHeader) + "\n";
    const auto blocks = [](const std::string& header) {
        return "\nDirection X\nDisp type : Average\n" + header +
               "\nDirection X\nDisp type : Max\n" + header +
               "\nDirection Z(or Y)\nDisp type : Average\n" + header +
               "\nDirection Z(or Y)\nDisp type : Max\n" + header;
    };
    const std::string expected = std::string("\n") + kDriftTitle + "\n" + blocks(drift) + "\n" +
                                 kMemberTitle + "\n" + kMemberHeader + "\n\n" + kRatioTitle + "\n" +
                                 blocks(ratio) + "\n" + kGravityTitle + "\n" + kGravityHeader +
                                 "\n\n" + kRigidityTitle + "\n" + kRigidityHeader + "\n\n" +
                                 kModulusTitle + "\n" + kModulusHeader + "\n";
    EXPECT_EQ(expected, Writer().Write().text());
}

// Two stories of 3500 mm, load cases 1 and 101. Angles: 7 / 3500 = 0.002, 17.5 / 3500 = 0.005
// (not below 0.005), 3.5 / 3500 = 0.001, 8.75 / 3500 = 0.0025; Max 8 / 3500 = 2.28571e-03.
TEST(ResultsCsv, BeginsWithTheMeanAnglesOfEveryStoryAndLoad) {
    Writer writer;
    writer.SetLoadCases({1, 101});
    StoryInfo& first = writer.AddStory(3500, 17.5);
    first.meanRelativeDispByLoadCase[kX] = {7.0, 17.5};
    writer.SetDisplacements(first, 17.5, 8.0);
    first.meanRelativeDispByLoadCase[kX] = {7.0, 17.5};
    StoryInfo& second = writer.AddStory(3500, 8.75);
    second.lowerLevel = 3500;
    second.upperLevel = 7000;
    second.meanRelativeDispByLoadCase[kX] = {3.5, 8.75};
    const std::string expected =
        "\n -----  Story deformation angle  ----- \n"
        "\nDirection X\n"
        "Disp type : Average\n"
        "Story,Load,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),Relative story "
        "disp.(mm),Story deform angle,Allowable story deform angle,Result\n"
        "1,1,0.000e+00,3.500e+03,3.500e+03,7.00000e+00,2.00000e-03,5.00000e-03,PASS\n"
        "1,101,0.000e+00,3.500e+03,3.500e+03,1.75000e+01,5.00000e-03,5.00000e-03,FAIL\n"
        "1,All,0.000e+00,3.500e+03,3.500e+03,1.75000e+01,5.00000e-03,5.00000e-03,FAIL\n"
        "2,1,3.500e+03,7.000e+03,3.500e+03,3.50000e+00,1.00000e-03,5.00000e-03,PASS\n"
        "2,101,3.500e+03,7.000e+03,3.500e+03,8.75000e+00,2.50000e-03,5.00000e-03,PASS\n"
        "2,All,3.500e+03,7.000e+03,3.500e+03,8.75000e+00,2.50000e-03,5.00000e-03,PASS\n"
        "\nDirection X\n"
        "Disp type : Max\n"
        "Story,Load,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),Relative story "
        "disp.(mm),Story deform angle,Allowable story deform angle,Result\n"
        "1,1,0.000e+00,3.500e+03,3.500e+03,8.00000e+00,2.28571e-03,5.00000e-03,PASS\n";
    EXPECT_EQ(expected, writer.Write().text().substr(0, expected.size()));
}

// 3500 mm over 7, 14, 21, 28 mm per load and 1.75, 3.5, 5.25, 10.5 mm over all loads: every block
// and row has its own source.
TEST(ResultsCsvDrift, EveryBlockPrintsItsOwnDisplacements) {
    Writer writer;
    StoryInfo& story = writer.AddStory(3500, 0);
    story.meanRelativeDispByLoadCase = {{{7.0}, {21.0}}};
    story.maxRelativeDispByLoadCase = {{{14.0}, {28.0}}};
    story.meanRelativeDisp = {1.75, 5.25};
    story.maxRelativeDisp = {3.5, 10.5};
    const Results results = writer.Write();
    EXPECT_THAT(Fields(results.Drift(0), 5), ElementsAre("7.00000e+00", "1.75000e+00"));
    EXPECT_THAT(Fields(results.Drift(1), 5), ElementsAre("1.40000e+01", "3.50000e+00"));
    EXPECT_THAT(Fields(results.Drift(2), 5), ElementsAre("2.10000e+01", "5.25000e+00"));
    EXPECT_THAT(Fields(results.Drift(3), 5), ElementsAre("2.80000e+01", "1.05000e+01"));
    EXPECT_THAT(Fields(results.Drift(0), 6), ElementsAre("2.00000e-03", "5.00000e-04"));
    EXPECT_THAT(Fields(results.Drift(1), 6), ElementsAre("4.00000e-03", "1.00000e-03"));
    EXPECT_THAT(Fields(results.Drift(2), 6), ElementsAre("6.00000e-03", "1.50000e-03"));
    EXPECT_THAT(Fields(results.Drift(3), 6), ElementsAre("8.00000e-03", "3.00000e-03"));
}

// Average X passes per load and fails over all loads; every Max X row would pass by itself.
TEST(ResultsCsvDrift, MaxXRowsRepeatTheLastAverageVerdict) {
    Writer writer;
    StoryInfo& story = writer.AddStory(3500, 7);
    story.meanRelativeDisp[kX] = 35.0;
    story.maxRelativeDisp[kX] = 7.0;
    writer.AddStory(3500, 7).meanRelativeDisp[kX] = 35.0;
    const Results results = writer.Write();
    EXPECT_THAT(Verdicts(results.Drift(0)), ElementsAre("PASS", "FAIL", "PASS", "FAIL"));
    EXPECT_THAT(Verdicts(results.Drift(1)), ElementsAre("FAIL", "FAIL", "FAIL", "FAIL"));
    EXPECT_THAT(Verdicts(results.Drift(2)), ElementsAre("PASS", "PASS", "PASS", "PASS"));
    EXPECT_THAT(Verdicts(results.Drift(3)), ElementsAre("PASS", "PASS", "PASS", "PASS"));
}

// Max X would fail; Average X passes throughout.
TEST(ResultsCsvDrift, MaxXRowsPassWhenTheLastAverageRowPassed) {
    Writer writer;
    writer.SetDisplacements(writer.AddStory(3500, 0), 7.0, 35.0);
    const Results results = writer.Write();
    EXPECT_THAT(Verdicts(results.Drift(1)), ElementsAre("PASS", "PASS"));
    EXPECT_THAT(Verdicts(results.Drift(3)), ElementsAre("FAIL", "FAIL"));
}

// Rows of block 1a and 1b come from the same stories, so "***" is seen only in a file whose first
// block is empty while the second is not: no member at all.
TEST(ResultsCsvDrift, AStoryWithoutMembersHasNoRowInSectionsOneToThree) {
    Writer writer;
    writer.AddStory(3500, 7).members.clear();
    const Results results = writer.Write();
    for (const std::size_t block : {0u, 1u, 2u, 3u}) {
        EXPECT_THAT(results.Drift(block), IsEmpty());
        EXPECT_THAT(results.Ratios(block), IsEmpty());
    }
    EXPECT_THAT(results.Members(), IsEmpty());
    EXPECT_THAT(results.text(), testing::Not(HasSubstr("***")));
}

TEST(ResultsCsv, AStoryWithoutMembersKeepsItsNumberAndItsRowsInSectionsFourToSix) {
    Writer writer;
    writer.AddStory(3500, 7).members.clear();
    writer.AddStory(3500, 7);
    const Results results = writer.Write();
    EXPECT_THAT(Fields(results.Drift(0), 0), ElementsAre("2", "2"));
    EXPECT_THAT(Fields(results.Ratios(3), 0), ElementsAre("2", "2"));
    EXPECT_THAT(Fields(results.Gravity(), 0), ElementsAre("1", "2"));
    EXPECT_THAT(Fields(results.Rigidity(), 0), ElementsAre("1", "2"));
    EXPECT_THAT(Fields(results.Moduli(), 0), ElementsAre("1", "2"));
}

TEST(ResultsCsv, WithoutLoadCasesAStoryHasOnlyItsAllRow) {
    Writer writer;
    writer.SetLoadCases({});
    writer.AddStory(3500, 7).members[0].outputDeformAngle = true;
    const Results results = writer.Write();
    for (const std::size_t block : {0u, 1u, 2u, 3u}) {
        EXPECT_THAT(Fields(results.Drift(block), 1), ElementsAre("All"));
        EXPECT_THAT(Fields(results.Ratios(block), 1), ElementsAre("All"));
    }
    EXPECT_THAT(results.Members(), IsEmpty());
}

// 15.625 / 4000 = 0.00390625 is a binary fraction: exactly the allowable angle.
TEST(ResultsCsvDrift, AnAngleEqualToTheAllowableFails) {
    Writer writer;
    writer.AddStory(4000, 15.625).allowDeformAngle = 0.00390625;
    const Results results = writer.Write();
    for (const std::size_t block : {0u, 1u, 2u, 3u})
        EXPECT_THAT(Verdicts(results.Drift(block)), ElementsAre("FAIL", "FAIL"));
}

TEST(ResultsCsvDrift, AnAngleJustBelowTheAllowablePasses) {
    Writer writer;
    writer.AddStory(4000, 15.625).allowDeformAngle = 0.00390626;
    const Results results = writer.Write();
    for (const std::size_t block : {0u, 2u, 3u})
        EXPECT_THAT(Verdicts(results.Drift(block)), ElementsAre("PASS", "PASS"));
}

// -35 / 3500 = -0.01: the angle is signed, and below any positive allowable value.
TEST(ResultsCsvDrift, ANegativeAnglePasses) {
    Writer writer;
    writer.AddStory(3500, -35);
    const Results results = writer.Write();
    EXPECT_EQ(std::string(kDriftRow) + "-3.50000e+01,-1.00000e-02,5.00000e-03,PASS",
              results.Drift(0).at(0));
}

// Angle 0.002 and 0: with rs bar 500 the ratio is 1 / (0.002 * 500) = 1.
TEST(ResultsCsv, AnAllowableOfZeroFailsEveryPositiveAngleAndPassesEveryPositiveRatio) {
    Writer writer;
    StoryInfo& story = writer.AddStory(3500, 7);
    story.allowDeformAngle = story.allowStiffRatio = story.allowEccentricityModulus = 0.0;
    const Results results = writer.Write();
    for (const std::size_t block : {0u, 1u, 2u, 3u}) {
        EXPECT_THAT(Verdicts(results.Drift(block)), ElementsAre("FAIL", "FAIL"));
        EXPECT_THAT(Verdicts(results.Ratios(block)), ElementsAre("PASS", "PASS"));
    }
    EXPECT_EQ("1,0.000e+00,3.500e+03,3.500e+03,0.00000e+00,0.00000e+00,0.00000e+00,FAIL,FAIL",
              results.Moduli().at(0));
}

TEST(ResultsCsvDrift, AStoryOfNoHeightHasAngleZeroButDividesInTheAllRowsOfZ) {
    Writer writer;
    writer.AddStory(0, 7);
    const Results results = writer.Write();
    EXPECT_THAT(Fields(results.Drift(0), 6), ElementsAre("0.00000e+00", "0.00000e+00"));
    EXPECT_THAT(Fields(results.Drift(1), 6), ElementsAre("0.00000e+00", "0.00000e+00"));
    EXPECT_THAT(Fields(results.Drift(2), 6), ElementsAre("0.00000e+00", "inf"));
    EXPECT_THAT(Fields(results.Drift(3), 6), ElementsAre("0.00000e+00", "inf"));
    EXPECT_THAT(Verdicts(results.Drift(2)), ElementsAre("PASS", "FAIL"));
}

TEST(ResultsCsvDrift, AStoryOfNoHeightThatDoesNotMoveHasNanInTheAllRowsOfZ) {
    Writer writer;
    writer.AddStory(0, 0);
    const Results results = writer.Write();
    EXPECT_EQ("1,All,0.000e+00,0.000e+00,0.000e+00,0.00000e+00,nan,5.00000e-03,FAIL",
              results.Drift(2).at(1));
    EXPECT_EQ("nan", Field(results.Drift(3).at(1), 6));
}

// -7 / 0.
TEST(ResultsCsvDrift, ANegativeDisplacementOverNoHeightIsMinusInfinityAndPasses) {
    Writer writer;
    writer.AddStory(0, -7);
    EXPECT_EQ("1,All,0.000e+00,0.000e+00,0.000e+00,-7.00000e+00,-inf,5.00000e-03,PASS",
              writer.Write().Drift(2).at(1));
}

// 7 / -3500 = -0.002 in the All rows of Z only.
TEST(ResultsCsvDrift, AStoryOfNegativeHeightDividesInTheAllRowsOfZOnly) {
    Writer writer;
    writer.AddStory(-3500, 7);
    const Results results = writer.Write();
    EXPECT_THAT(Fields(results.Drift(0), 6), ElementsAre("0.00000e+00", "0.00000e+00"));
    EXPECT_THAT(Fields(results.Drift(2), 6), ElementsAre("0.00000e+00", "-2.00000e-03"));
    EXPECT_THAT(Fields(results.Drift(3), 6), ElementsAre("0.00000e+00", "-2.00000e-03"));
    EXPECT_THAT(Fields(results.Drift(0), 4), ElementsAre("-3.500e+03", "-3.500e+03"));
}

TEST(ResultsCsvDrift, ADisplacementThatIsNotANumberFails) {
    Writer writer;
    writer.AddStory(3500, kNan);
    const Results results = writer.Write();
    EXPECT_EQ(std::string(kDriftRow) + "nan,nan,5.00000e-03,FAIL", results.Drift(0).at(0));
    EXPECT_THAT(Verdicts(results.Drift(2)), ElementsAre("FAIL", "FAIL"));
}

// Load cases 7 and 8; member 21 is flagged, member 22 is not. X rows before Z rows; the load
// column counts load cases from 1.
TEST(ResultsCsvMembers, PrintsFlaggedMembersXRowsFirstWithTheLoadsPosition) {
    Writer writer;
    writer.SetLoadCases({7, 8});
    StoryInfo& story = writer.AddStory(3500, 7);
    story.members.assign(4, StoryMember{});
    for (std::size_t i = 0; i < 4; ++i) {
        story.members[i].memberNumber = i < 2 ? 21 : 22;
        story.members[i].loadCaseNumber = i % 2 == 0 ? 7 : 8;
        story.members[i].outputDeformAngle = i < 2;
    }
    story.members[0].relativeDisp = {3.5, 7.0};
    story.members[1].relativeDisp = {35.0, -7.0};
    EXPECT_THAT(writer.Write().Members(),
                ElementsAre("1,1,21,3.500e+03,X,1.00000e-03,5.00000e-03,PASS",
                            "1,2,21,3.500e+03,X,1.00000e-02,5.00000e-03,FAIL",
                            "1,1,21,3.500e+03,Z( or Y),2.00000e-03,5.00000e-03,PASS",
                            "1,2,21,3.500e+03,Z( or Y),-2.00000e-03,5.00000e-03,PASS"));
}

// Records stand member by member; the rows stand load by load.
TEST(ResultsCsvMembers, WithinAStoryLoadsComeBeforeMembers) {
    Writer writer;
    writer.SetLoadCases({7, 8});
    for (int story = 0; story < 2; ++story) {
        StoryInfo& info = writer.AddStory(3500, 7);
        info.members.assign(4, StoryMember{});
        for (std::size_t i = 0; i < 4; ++i) {
            info.members[i].memberNumber = i < 2 ? 21 : 22;
            info.members[i].loadCaseNumber = i % 2 == 0 ? 7 : 8;
            info.members[i].outputDeformAngle = true;
        }
    }
    const Lines rows = writer.Write().Members();
    EXPECT_THAT(Fields(rows, 0), ElementsAre("1", "1", "1", "1", "1", "1", "1", "1", "2", "2", "2",
                                             "2", "2", "2", "2", "2"));
    EXPECT_THAT(Fields(rows, 1), ElementsAre("1", "1", "2", "2", "1", "1", "2", "2", "1", "1", "2",
                                             "2", "1", "1", "2", "2"));
    EXPECT_THAT(Fields(rows, 2), ElementsAre("21", "22", "21", "22", "21", "22", "21", "22", "21",
                                             "22", "21", "22", "21", "22", "21", "22"));
}

TEST(ResultsCsvMembers, TwoFlaggedRecordsOfOneMemberAndLoadBothPrint) {
    Writer writer;
    StoryInfo& story = writer.AddStory(3500, 7);
    story.members[0].memberNumber = 21;
    story.members[0].outputDeformAngle = true;
    story.members.push_back(story.members[0]);
    EXPECT_THAT(Fields(writer.Write().Members(), 4), ElementsAre("X", "X", "Z( or Y)", "Z( or Y)"));
}

TEST(ResultsCsvMembers, ARecordOfALoadCaseThatIsNotListedDoesNotPrint) {
    Writer writer;
    StoryInfo& story = writer.AddStory(3500, 7);
    story.members[0].loadCaseNumber = 99;
    story.members[0].outputDeformAngle = true;
    EXPECT_THAT(writer.Write().Members(), IsEmpty());
}

TEST(ResultsCsvMembers, ALoadCaseListedTwicePrintsARecordTwice) {
    Writer writer;
    writer.SetLoadCases({7, 7});
    writer.AddStory(3500, 7).members[0].outputDeformAngle = true;
    EXPECT_THAT(Fields(writer.Write().Members(), 1), ElementsAre("1", "2", "1", "2"));
}

TEST(ResultsCsvMembers, AnAngleIsZeroWithoutHeightAndDividesByANegativeHeight) {
    Writer writer;
    for (const double height : {0.0, -3500.0}) {
        StoryMember& record = writer.AddStory(height, 7).members[0];
        record.relativeDisp = {7.0, 14.0};
        record.outputDeformAngle = true;
    }
    EXPECT_THAT(Fields(writer.Write().Members(), 5),
                ElementsAre("0.00000e+00", "0.00000e+00", "-2.00000e-03", "-4.00000e-03"));
}

// 15.625 / 4000 = 0.00390625, exactly the allowable angle.
TEST(ResultsCsvMembers, AnAngleEqualToTheAllowableFails) {
    Writer writer;
    StoryInfo& story = writer.AddStory(4000, 7);
    story.allowDeformAngle = 0.00390625;
    story.members[0].relativeDisp = {15.625, 15.625};
    story.members[0].outputDeformAngle = true;
    EXPECT_THAT(Verdicts(writer.Write().Members()), ElementsAre("FAIL", "FAIL"));
}

// Height 1000 mm. Per load 2, 4, 5, 10 mm with rs bars 250, 500, 100, 200, over all loads 1, 8,
// 20, 25 mm with rs bars 2000, 62.5, 12.5, 16: ratio (1000 / disp) / rs bar.
TEST(ResultsCsvRatio, EveryBlockUsesItsOwnDisplacementsAndRsBars) {
    Writer writer;
    StoryInfo& story = writer.AddStory(1000, 0);
    story.meanRelativeDispByLoadCase = {{{2.0}, {5.0}}};
    story.maxRelativeDispByLoadCase = {{{4.0}, {10.0}}};
    story.meanRelativeDisp = {1.0, 20.0};
    story.maxRelativeDisp = {8.0, 25.0};
    writer.engine().rsBarOfMeanDispByLoadCase = {{{250.0}, {100.0}}};
    writer.engine().rsBarOfMaxDispByLoadCase = {{{500.0}, {200.0}}};
    writer.engine().rsBarOfMeanDisp = {2000.0, 12.5};
    writer.engine().rsBarOfMaxDisp = {62.5, 16.0};
    const Results results = writer.Write();
    EXPECT_THAT(
        results.Ratios(0),
        ElementsAre("1,7,0.000e+00,1.000e+03,1.000e+03,2.00000e+00,2.00000e+00,6.00000e-01,PASS",
                    "1,All,0.000e+00,1.000e+03,1.000e+03,1.00000e+00,5.00000e-01,6.00000e-01,"
                    "FAIL"));
    EXPECT_THAT(Fields(results.Ratios(1), 6), ElementsAre("5.00000e-01", "2.00000e+00"));
    EXPECT_THAT(Fields(results.Ratios(2), 6), ElementsAre("2.00000e+00", "4.00000e+00"));
    EXPECT_THAT(Fields(results.Ratios(3), 6), ElementsAre("5.00000e-01", "2.50000e+00"));
    EXPECT_THAT(Fields(results.Ratios(1), 5), ElementsAre("4.00000e+00", "8.00000e+00"));
    EXPECT_THAT(Fields(results.Ratios(2), 5), ElementsAre("5.00000e+00", "2.00000e+01"));
    EXPECT_THAT(Fields(results.Ratios(3), 5), ElementsAre("1.00000e+01", "2.50000e+01"));
}

// Max X judges here, unlike in the angles: 1000 / 20 / 500 = 0.1.
TEST(ResultsCsvRatio, EveryBlockJudgesItsOwnRows) {
    Writer writer;
    writer.SetDisplacements(writer.AddStory(1000, 0), 2.0, 20.0);
    const Results results = writer.Write();
    EXPECT_THAT(Verdicts(results.Ratios(0)), ElementsAre("PASS", "PASS"));
    EXPECT_THAT(Verdicts(results.Ratios(1)), ElementsAre("FAIL", "FAIL"));
    EXPECT_THAT(Verdicts(results.Ratios(2)), ElementsAre("PASS", "PASS"));
    EXPECT_THAT(Verdicts(results.Ratios(3)), ElementsAre("FAIL", "FAIL"));
}

// 1 / (4 / 1024 * 512) = 0.5, in binary fractions throughout.
TEST(ResultsCsvRatio, ARatioEqualToTheAllowableFails) {
    Writer writer;
    writer.AddStory(1024, 4).allowStiffRatio = 0.5;
    writer.engine().rsBarOfMeanDisp = writer.engine().rsBarOfMaxDisp = {512.0, 512.0};
    writer.engine().rsBarOfMeanDispByLoadCase = {{{512.0}, {512.0}}};
    writer.engine().rsBarOfMaxDispByLoadCase = {{{512.0}, {512.0}}};
    const Results results = writer.Write();
    for (const std::size_t block : {0u, 1u, 2u, 3u}) {
        EXPECT_THAT(Fields(results.Ratios(block), 6), ElementsAre("5.00000e-01", "5.00000e-01"));
        EXPECT_THAT(Verdicts(results.Ratios(block)), ElementsAre("FAIL", "FAIL"));
    }
}

TEST(ResultsCsvRatio, IsZeroWithoutDisplacementOrRsBar) {
    Writer still;
    still.AddStory(3500, 0);
    Writer without;
    without.AddStory(3500, 7);
    without.engine().rsBarOfMeanDisp = without.engine().rsBarOfMaxDisp = {0.0, 0.0};
    without.engine().rsBarOfMeanDispByLoadCase = {{{0.0}, {0.0}}};
    without.engine().rsBarOfMaxDispByLoadCase = {{{0.0}, {0.0}}};
    for (Writer* writer : {&still, &without}) {
        const Results results = writer->Write();
        for (const std::size_t block : {0u, 1u, 2u, 3u}) {
            EXPECT_THAT(Fields(results.Ratios(block), 6),
                        ElementsAre("0.00000e+00", "0.00000e+00"));
            EXPECT_THAT(Verdicts(results.Ratios(block)), ElementsAre("FAIL", "FAIL"));
        }
    }
}

// 7 / 0 is infinite, 1 / infinite is 0; 0 / 0 is not a number and stays one.
TEST(ResultsCsvRatio, OfAStoryOfNoHeightIsZeroButNanInTheAllRowsOfZWithoutDisplacement) {
    Writer moving, still;
    moving.AddStory(0, 7);
    still.AddStory(0, 0);
    for (const std::size_t block : {0u, 1u, 2u, 3u})
        EXPECT_THAT(Fields(moving.Write().Ratios(block), 6),
                    ElementsAre("0.00000e+00", "0.00000e+00"));
    const Results results = still.Write();
    EXPECT_THAT(Fields(results.Ratios(0), 6), ElementsAre("0.00000e+00", "0.00000e+00"));
    EXPECT_THAT(Fields(results.Ratios(1), 6), ElementsAre("0.00000e+00", "0.00000e+00"));
    EXPECT_THAT(Fields(results.Ratios(2), 6), ElementsAre("0.00000e+00", "nan"));
    EXPECT_THAT(Fields(results.Ratios(3), 6), ElementsAre("0.00000e+00", "nan"));
    EXPECT_THAT(Verdicts(results.Ratios(2)), ElementsAre("FAIL", "FAIL"));
}

// Of height -3500 mm: (1 / (7 / -3500)) / 500 = -1 in the All rows of Z only.
TEST(ResultsCsvRatio, OfAStoryOfNegativeHeightCountsInTheAllRowsOfZOnly) {
    Writer writer;
    writer.AddStory(-3500, 7);
    const Results results = writer.Write();
    EXPECT_THAT(Fields(results.Ratios(0), 6), ElementsAre("0.00000e+00", "0.00000e+00"));
    EXPECT_THAT(Fields(results.Ratios(2), 6), ElementsAre("0.00000e+00", "-1.00000e+00"));
}

TEST(ResultsCsvCenters, PrintsGravityAndRigidityOfEveryStory) {
    Writer writer;
    StoryInfo& story = writer.AddStory(3500, 7);
    story.gravityCenter = {1234.5678, -2.0};
    story.rigidityCenter = {3e10, kNan};
    writer.AddStory(7000, 7).lowerLevel = 3500;
    const Results results = writer.Write();
    EXPECT_THAT(results.Gravity(),
                ElementsAre("1,0.000e+00,3.500e+03,3.500e+03,1.23457e+03,-2.00000e+00",
                            "2,3.500e+03,7.000e+03,3.500e+03,0.00000e+00,0.00000e+00"));
    EXPECT_THAT(results.Rigidity(),
                ElementsAre("1,0.000e+00,3.500e+03,3.500e+03,3.00000e+10,nan",
                            "2,3.500e+03,7.000e+03,3.500e+03,0.00000e+00,0.00000e+00"));
}

TEST(ResultsCsvModulus, JudgesBothDirectionsApart) {
    Writer writer;
    writer.AddStory(3500, 7).eccentricityModulus = {0.1, 0.2};
    writer.AddStory(3500, 7).eccentricityModulus = {0.2, 0.1};
    EXPECT_THAT(writer.Write().Moduli(),
                ElementsAre("1,0.000e+00,3.500e+03,3.500e+03,1.00000e-01,2.00000e-01,1.50000e-01,"
                            "PASS,FAIL",
                            "2,0.000e+00,3.500e+03,3.500e+03,2.00000e-01,1.00000e-01,1.50000e-01,"
                            "FAIL,PASS"));
}

TEST(ResultsCsvModulus, AModulusEqualToTheAllowableFails) {
    Writer writer;
    writer.AddStory(3500, 7).eccentricityModulus = {0.15, 0.15};
    const Lines rows = writer.Write().Moduli();
    EXPECT_EQ("FAIL", Field(rows.at(0), 7));
    EXPECT_EQ("FAIL", Field(rows.at(0), 8));
}

TEST(ResultsCsvModulus, AModulusThatIsNotANumberFails) {
    Writer writer;
    writer.AddStory(3500, 7).eccentricityModulus = {kNan, -kNan};
    EXPECT_EQ("1,0.000e+00,3.500e+03,3.500e+03,nan,nan,1.50000e-01,FAIL,FAIL",
              writer.Write().Moduli().at(0));
}

// Levels have three decimals, the rest five, and an exponent has two digits or more.
TEST(ResultsCsv, PrintsExponentsOfAtLeastTwoDigits) {
    Writer writer;
    writer.AddStory(1e120, 7).gravityCenter = {1e-9, 1e123};
    EXPECT_EQ("1,0.000e+00,1.000e+120,1.000e+120,1.00000e-09,1.00000e+123",
              writer.Write().Gravity().at(0));
}

TEST(ResultsCsv, LogsItsStartAndItsEndAndClosesTheFile) {
    Writer writer;
    writer.Write();
    EXPECT_EQ(
        "\nStarts printing story info in csv style...\nEnds printing story info in csv style...\n",
        writer.bench.Log());
}

TEST(ResultsCsv, ASecondWriteReplacesTheFirst) {
    Writer writer;
    writer.AddStory(3500, 7);
    const std::string first = writer.Write().text();
    EXPECT_EQ(first, writer.Write().text());
    writer.engine().stories.clear();
    EXPECT_EQ(Writer().Write().text(), writer.Write().text());
}

// A folder stands where the file should be.
TEST(ResultsCsv, AFileThatCannotBeOpenedIsALogWarningWithItsPath) {
    Writer writer;
    std::filesystem::create_directory(writer.engine().resultFilePath);
    writer.engine().PrintStoryInfoCsv();
    EXPECT_EQ("\nStarts printing story info in csv style...\n" +
                  LoggedWarning("Cannot open result file " + writer.engine().resultFilePath + "."),
              writer.bench.Log());
}

// Two load cases are counted, the story has displacements for one.
TEST(ResultsCsv, AListThatIsTooShortEndsTheFileAtTheRowBefore) {
    Writer writer;
    writer.AddStory(3500, 7);
    writer.SetLoadCases({7, 8});
    try {
        writer.engine().PrintStoryInfoCsv();
        FAIL() << "nothing was thrown";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("invalid vector subscript", error.what());
    }
    const Results results(writer.bench.folder.Read("model.aijR2Result.csv"));
    EXPECT_THAT(results.Drift(0),
                ElementsAre(std::string(kDriftRow) + "7.00000e+00,2.00000e-03,5.00000e-03,PASS"));
    EXPECT_THAT(results.text(), testing::EndsWith("PASS\n"));
    EXPECT_EQ("\nStarts printing story info in csv style...\n", writer.bench.Log());
}

TEST(ResultsCsv, AShortListOfLoadCaseNumbersIsAnInvalidSubscript) {
    Writer writer;
    writer.AddStory(3500, 7);
    writer.engine().loadCaseNumbers.clear();
    EXPECT_THROW(writer.engine().PrintStoryInfoCsv(), std::out_of_range);
}

TEST(ResultsCsv, AShortListOfRsBarsIsAnInvalidSubscriptInTheThirdSection) {
    Writer writer;
    writer.AddStory(3500, 7);
    writer.engine().rsBarOfMaxDispByLoadCase[kZ].clear();
    EXPECT_THROW(writer.engine().PrintStoryInfoCsv(), std::out_of_range);
    const Results results(writer.bench.folder.Read("model.aijR2Result.csv"));
    EXPECT_EQ(2u, results.Ratios(2).size());
    EXPECT_THAT(results.Ratios(3), IsEmpty());
}

TEST(CloseResultFile, IsFalseWhenNoFileWasOpened) {
    Writer writer;
    EXPECT_FALSE(writer.engine().CloseResultFile());
}

TEST(FormattedPrint, DropsTheSignOfAValueThatIsNotANumber) {
    EXPECT_FALSE(std::signbit(Printable(-kNan)));
    EXPECT_TRUE(std::signbit(Printable(-0.0)));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(),
              Printable(-std::numeric_limits<double>::infinity()));
    EXPECT_EQ(-5, Printable(-5));
}
