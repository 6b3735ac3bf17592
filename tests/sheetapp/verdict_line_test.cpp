// The overall verdict in one line.

#include "sheetapp/verdict_line.h"

#include <gtest/gtest.h>

namespace {

// A story of 3000 mm in which everything is far from its limit: 1/600, 1.2 and 0.05.
StoryFindings SoundStory(int number) {
    StoryFindings story;
    story.number = number;
    story.height = 3000.0;
    for (DirectionFindings& direction : story.directions) {
        direction.worstUpright = {.member = 1,
                                  .drift = 5.0,
                                  .angle = 5.0 / 3000.0,
                                  .allowable = 1.0 / 200.0,
                                  .utilisation = 1.0 / 3.0,
                                  .code = CodeVerdict::kOk,
                                  .why = {}};
        direction.stiffnessRatio = 1.2;
        direction.ratioUtilisation = 0.5;
        direction.stiffnessRatioCode = CodeVerdict::kOk;
        direction.eccentricityModulus = 0.05;
        direction.modulusUtilisation = 1.0 / 3.0;
        direction.eccentricityCode = CodeVerdict::kOk;
    }
    return story;
}

class VerdictLineText : public testing::Test {
protected:
    VerdictLineText() {
        findings.axisKnown = findings.zIsVertical = true;
        findings.stories = {SoundStory(1), SoundStory(2)};
        findings.verdict.code = CodeVerdict::kOk;
    }

    // 0.4281 over 0.15 is 2.854.
    void MakeEccentric() {
        DirectionFindings& y = findings.stories[0].directions[kZ];
        y.eccentricityModulus = 0.4281;
        y.modulusUtilisation = 2.854;
        y.eccentricityCode = CodeVerdict::kNg;
        findings.verdict.code = CodeVerdict::kNg;
    }

    // 20 mm over 3000 mm: 1/150, 4/3 of the limit.
    void MakeSoft() {
        WorstUprightMember& x = findings.stories[1].directions[kX].worstUpright;
        x.drift = -20.0;
        x.angle = 20.0 / 3000.0;
        x.utilisation = 4.0 / 3.0;
        x.code = CodeVerdict::kNg;
        findings.verdict.code = CodeVerdict::kNg;
    }

    std::string Line(Language language = Language::kEnglish) {
        return VerdictLine(findings, language);
    }

    Findings findings;
};

}  // namespace

TEST_F(VerdictLineText, OfNgNamesCheckStoryDirectionValueAndLimit) {
    MakeEccentric();
    EXPECT_EQ("NG: eccentricity, story 1, Y, 0.429 > 0.15", Line());
    EXPECT_EQ("NG: 偏心率 1階 Y方向 0.429 > 0.15", Line(Language::kJapanese));
}

TEST_F(VerdictLineText, OfTwoThatFailNamesTheOneFartherBeyondItsLimit) {
    MakeSoft();
    EXPECT_EQ("NG: story deformation angle, story 2, X, 1/150 > 1/200", Line());
    MakeEccentric();
    EXPECT_EQ("NG: eccentricity, story 1, Y, 0.429 > 0.15", Line());
}

// A ratio that is not positive has no utilisation.
TEST_F(VerdictLineText, NamesAValueBeyondAllMeasureFirst) {
    MakeEccentric();
    DirectionFindings& x = findings.stories[1].directions[kX];
    x.stiffnessRatio = 0.0;
    x.ratioUtilisation.reset();
    x.stiffnessRatioCode = CodeVerdict::kNg;
    EXPECT_EQ("NG: stiffness ratio, story 2, X, 0.000 < 0.6", Line());
}

TEST_F(VerdictLineText, OfOkNamesWhatComesClosestToItsLimit) {
    EXPECT_EQ("OK: closest to its limit: stiffness ratio, story 1, X, 1.200 ≥ 0.6", Line());
    EXPECT_EQ("OK: 最も厳しい値 剛性率 1階 X方向 1.200 ≥ 0.6", Line(Language::kJapanese));
}

TEST_F(VerdictLineText, OfOkCountsWhatIsToBeChecked) {
    findings.remarks = {{"R05", RemarkKind::kWarning, {}, {}, "", "", "", ""}};
    EXPECT_EQ("OK (1 to check): closest to its limit: stiffness ratio, story 1, X, 1.200 ≥ 0.6",
              Line());
}

TEST_F(VerdictLineText, IsOpenWhereAValueCannotBeDetermined) {
    findings.stories[1].directions[kX].eccentricityCode = CodeVerdict::kUndetermined;
    findings.verdict.code = CodeVerdict::kUndetermined;
    EXPECT_EQ("Open: eccentricity, story 2, X, not determinable", Line());
}

TEST_F(VerdictLineText, IsOpenWhereARemarkIsAnError) {
    findings.remarks = {{"R03", RemarkKind::kError, {}, {}, "", "", "", ""}};
    findings.verdict.code = CodeVerdict::kUndetermined;
    EXPECT_EQ("Open: 1 to be mended first", Line());
}
