// The page as a whole: what it shows of a small building, what it lets in and what it leaves out.

#include "sheet/sheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/load_case_lines.h"
#include "tests/support/sheet_of_run.h"
#include "tests/support/small_building.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class CalculationSheet : public testing::Test {
protected:
    CalculationSheet() { AddSmallBuilding(host); }

    std::string Html(const std::string& input = kSmallBuildingInput,
                     const SheetOptions& options = {}) {
        return SheetOfRun(host, input, options);
    }

    FakeHost host;
};

// Column 1 moves 7 mm in 3500 mm: 1/500. Four columns carry 100 kN each under the dead load and
// 14 kN each under the earthquake: C = 56/400 = 0.140. K_R = 176e6 kN mm = 176,000 kN m, r_eX =
// sqrt(176e6/8) = 4690.4 mm, and G may lie 0.15 r_eX = 703.6 mm from R.
TEST_F(CalculationSheet, ShowsTheFiguresOfTheSmallBuilding) {
    const std::string html = Html();
    EXPECT_EQ("1/500", CellText(html, "worstUpright.angle", 1, "x"));
    EXPECT_EQ("1/1000", CellText(html, "worstUpright.angle", 1, "second"));
    EXPECT_EQ("7.000", CellText(html, "worstUpright.drift_mm", 1, "x"));
    EXPECT_EQ("1.000", CellText(html, "stiffnessRatio", 1, "x"));
    EXPECT_EQ("500.0", CellText(html, "rs", 1, "x"));
    EXPECT_EQ("0.000", CellText(html, "eccentricityModulus", 1, "x"));
    EXPECT_EQ("400.0", CellText(html, "weightAbove_kN", 1));
    EXPECT_EQ("100.0", CellText(html, "share", 1, "x"));
    EXPECT_EQ("0.140", CellText(html, "shearCoefficient", 1, "x"));
    EXPECT_EQ("8.00", CellText(html, "stiffness_kNpmm", 1, "x"));
    EXPECT_EQ("176.000", CellText(html, "torsionalStiffness_kNmm", 1));
    EXPECT_EQ("4,690", CellText(html, "elasticRadius_mm", 1, "x"));
    EXPECT_EQ("704", CellText(html, "toLimit_mm", 1, "x"));
}

// The cell of a centre shows the coordinate across the direction: z for X, x for Z.
TEST_F(CalculationSheet, ShowsTheCoordinateOfACentreAcrossTheDirection) {
    const std::string html = Html();
    EXPECT_EQ("2,000", CellText(html, "gravityCenter_mm", 1, "x"));
    EXPECT_EQ("3,000", CellText(html, "gravityCenter_mm", 1, "second"));
}

TEST_F(CalculationSheet, HasItsSectionsInOrder) {
    const std::string html = Html();
    std::size_t place = 0;
    for (const char* const id :
         {"S1", "S2", "S3", "S4", "S5", "S6", "S7", "S8", "S9", "A1", "A2", "A3"}) {
        const std::size_t found = html.find("id=\"" + std::string(id) + "\"");
        ASSERT_NE(std::string::npos, found) << id;
        EXPECT_LT(place, found) << id;
        place = found;
    }
}

TEST_F(CalculationSheet, BeginsWithTheTopStory) {
    for (std::int32_t i = 0; i < 4; ++i) {
        host.Node(i + 21, i % 2 * 6.0, 7.0, i / 2 * 4.0).Member(i + 11, i + 11, i + 21);
        host.Displace(2, i + 21, 0.010, 0, 0).Displace(3, i + 21, 0, 0, 0.006);
    }
    host.Member(19, 21, 22);
    const std::string table = Section(Html(), "S4");
    EXPECT_LT(table.find("data-story=\"2\""), table.find("data-story=\"1\""));
}

// Y vertical: the second direction is Z. Nobody reads "Z(or Y)" but where the results file is
// quoted.
TEST_F(CalculationSheet, CallsDirectionsByTheirAxes) {
    const std::string html = Html();
    EXPECT_THAT(Section(html, "S3"), HasSubstr("Z方向"));
    EXPECT_THAT(html.substr(0, html.find("id=\"A2\"")), Not(HasSubstr("Z(or Y)")));
}

TEST_F(CalculationSheet, ShowsTheNotesOfTheInputInTheSummary) {
    const std::string summary =
        Section(Html("SheetNote,Drawing S-12 <rev. 3>,\n" + kLoadCaseLines + "FIN\n"), "S1");
    EXPECT_THAT(summary, HasSubstr("class=\"input-note\""));
    EXPECT_THAT(summary, HasSubstr("Drawing S-12 &lt;rev. 3&gt;"));
}

// The plan reaches from 0 to 6 m in x and from 0 to 4 m in z.
TEST_F(CalculationSheet, NamesTheGridLinesThatCrossAPlan) {
    const std::string plans =
        Section(Html("SheetGridX,X1,0,X2,6000,X9,90000,\nSheetGridZ,Z1,0,Z2,4000,Z9,-50000,\n" +
                     kLoadCaseLines + "FIN\n"),
                "S6");
    for (const char* const crossing : {">X1<", ">X2<", ">Z1<", ">Z2<"})
        EXPECT_THAT(plans, HasSubstr(crossing));
    for (const char* const beside : {">X9<", ">Z9<"})
        EXPECT_THAT(plans, Not(HasSubstr(beside)));
}

TEST_F(CalculationSheet, AsksNobodyForAnything) {
    std::string html = Html();
    const std::string drawing = " xmlns=\"http://www.w3.org/2000/svg\"";
    for (std::size_t at = html.find(drawing); at != std::string::npos; at = html.find(drawing))
        html.erase(at, drawing.size());
    for (const char* const reference :
         {"http:", "https:", "src=", "url(", "<script", "@import", "<link"})
        EXPECT_EQ(std::string::npos, html.find(reference)) << reference;
    EXPECT_THAT(html, StartsWith("<!DOCTYPE html>\n<html lang=\"ja\">"));
    EXPECT_THAT(html, EndsWith("</html>\n"));
}

TEST_F(CalculationSheet, HasTheSameBytesEveryTime) {
    FakeHost again;
    AddSmallBuilding(again);
    EXPECT_EQ(Html(), SheetOfRun(again, kSmallBuildingInput));
}

TEST_F(CalculationSheet, TakesItsNamesFromTheInputFile) {
    const std::string html =
        Html("SheetProject,霞ヶ丘計画,\nSheetStoryName,1,GF,\nSheetFloorName,2,RFL,\n" +
             kLoadCaseLines + "FIN\n");
    EXPECT_THAT(html, HasSubstr("霞ヶ丘計画"));
    EXPECT_THAT(Section(html, "S4"), HasSubstr("<th scope=\"row\">GF</th>"));
    EXPECT_THAT(Section(html, "S2"), HasSubstr("RFL 3,500"));
}

TEST_F(CalculationSheet, LetsNoMarkupIn) {
    const std::string html = Html("SheetProject,<script>alert('x') & \"more\"</script>\x01\x7F,\n" +
                                  kLoadCaseLines + "FIN\n");
    EXPECT_THAT(html, Not(HasSubstr("<script")));
    EXPECT_THAT(
        html, HasSubstr("&lt;script&gt;alert(&#39;x&#39;) &amp; &quot;more&quot;&lt;/script&gt;"));
    EXPECT_EQ(std::string::npos, html.find('\x01'));
    EXPECT_EQ(std::string::npos, html.find('\x7F'));
}

// 0xFF begins no character in UTF-8, and none in Shift_JIS.
TEST_F(CalculationSheet, ShowsBytesThatAreNoTextAsSuch) {
    EXPECT_THAT(Html("SheetDesigner,a\xFF"
                     "b,\n" +
                     kLoadCaseLines + "FIN\n"),
                HasSubstr("a\xEF\xBF\xBD"
                          "b"));
}

TEST_F(CalculationSheet, CutsANameThatWouldFitNoColumn) {
    const std::string html =
        Html("SheetStoryName,1," + std::string(100, 'W') + ",\n" + kLoadCaseLines + "FIN\n");
    EXPECT_THAT(Section(html, "S4"), HasSubstr("<th scope=\"row\">WWWWWWWWWWWW…</th>"));
}

TEST_F(CalculationSheet, OfARunThatEndedEarlySaysWhyAndIsNotOk) {
    host.resultsAvailable = false;
    const std::string html = Html();
    EXPECT_THAT(Section(html, "S1"), HasSubstr("class=\"alarm\""));
    EXPECT_EQ("未確定", CellText(html, "verdict.code"));
    EXPECT_THAT(html, HasSubstr(" H = — mm</p>"));  // nothing is compared with the 31 m
}

// Neither cases nor axes are known then; the engine's own are no statement about the building.
TEST_F(CalculationSheet, OfARunThatEndedBeforeTheInputWasReadNamesNoCasesAndNoAxes) {
    Html();
    const auto axis = std::ranges::find(host.calls, "IsZUp()");
    host.failAtCall = static_cast<std::size_t>(axis - host.calls.begin()) + 1;
    host.calls.clear();
    const std::string html = Html();
    for (const char* label : {"vertical axis", "second direction (global)", "dead load",
                              "earthquake X", "earthquake 2"})
        EXPECT_THAT(html, HasSubstr(std::string(label) + "</span> —</span>"));
    EXPECT_THAT(html, Not(HasSubstr(">R01<")));
}

TEST_F(CalculationSheet, LeavesTheDetailsOutWhenTold) {
    SheetOptions options;
    options.detail = SheetDetail::kNone;
    const std::string html = Html(kSmallBuildingInput, options);
    EXPECT_THAT(html, Not(HasSubstr("members.shear_kN")));
}

TEST_F(CalculationSheet, OpensInTheLanguageItWasMadeFor) {
    SheetOptions options;
    options.language = SheetLanguage::kEnglish;
    const std::string html = Html(kSmallBuildingInput, options);
    EXPECT_THAT(html, HasSubstr("<html lang=\"en\">"));
    EXPECT_THAT(html, HasSubstr("id=\"en\" checked=\"checked\""));
}

// All columns push back with 14 kN; a name may have a hyphen before its digits.
TEST_F(CalculationSheet, HasTheMinusOfItsTablesInItsRemarks) {
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Force(2, column, 0, 0, -14, 0);
    SheetContent content = ContentOfRun(host, kSmallBuildingInput);
    EXPECT_THAT(Section(SheetHtml(content), "S7"), HasSubstr("story 1 X ΣQ = −56.0 kN"));
    content.findings.remarks.front().en = "tower-2.csv, FloorLevel,0,-1200 (-5 mm)";
    EXPECT_THAT(Section(SheetHtml(content), "S7"),
                HasSubstr("tower-2.csv, FloorLevel,0,-1200 (−5 mm)"));
}

// The page is handed on in pieces while it is formed.
TEST_F(CalculationSheet, IsTheSameInAFileAsInMemory) {
    const TestFolder folder;
    const SheetContent content = ContentOfRun(host, kSmallBuildingInput);
    WriteSheetFile(content, folder.Path("sheet.html"));
    EXPECT_EQ(SheetHtml(content), folder.Read("sheet.html"));
}

TEST_F(CalculationSheet, CrowdsItsFirstPageForErrors) {
    SheetContent content = ContentOfRun(host, kSmallBuildingInput);
    EXPECT_THAT(SheetHtml(content), Not(HasSubstr("<main class=\"crowded\">")));
    content.findings.remarks.emplace_back().kind = RemarkKind::kError;
    EXPECT_THAT(SheetHtml(content), HasSubstr("<main class=\"crowded\">"));
    EXPECT_THAT(SheetHtml(content), HasSubstr("@page:first{"));
}

// Two paths of 100 letters add two lines to a first page that has room for one.
TEST_F(CalculationSheet, CrowdsItsFirstPageForTheLongPathsOfABuildingOfEightStories) {
    SheetContent content = ContentOfRun(host, kSmallBuildingInput);
    content.findings.stories.resize(8, content.findings.stories.front());
    EXPECT_THAT(SheetHtml(content), Not(HasSubstr("<main class=\"crowded\">")));
    content.input.path = std::string(100, 'p');
    EXPECT_THAT(SheetHtml(content), Not(HasSubstr("<main class=\"crowded\">")));
    content.model.path = std::string(100, 'p');
    EXPECT_THAT(SheetHtml(content), HasSubstr("<main class=\"crowded\">"));
}

TEST_F(CalculationSheet, HasRoomForTheLongPathsOfALowBuilding) {
    SheetContent content = ContentOfRun(host, kSmallBuildingInput);
    content.input.path = content.model.path = std::string(100, 'p');
    EXPECT_THAT(SheetHtml(content), Not(HasSubstr("<main class=\"crowded\">")));
}

TEST_F(CalculationSheet, MarksTheRowsThatTheResultsFileDoesNotHold) {
    SheetContent content = ContentOfRun(host, kSmallBuildingInput);
    EXPECT_THAT(Section(SheetHtml(content), "A2"), Not(HasSubstr("R26")));
    content.findings.end.missingRows = {{1, "Eccentricity modulus, story 1"}};
    const std::string rows = Section(SheetHtml(content), "A2");
    const std::size_t marked = rows.find("<tr class=\"wrong\">");
    ASSERT_NE(std::string::npos, marked);
    EXPECT_LT(rows.rfind("Center of rigidity, story 1"), marked);
    EXPECT_THAT(rows.substr(marked), HasSubstr("PASS R26</td>"));
}

// A figure that is not formed is a dash, and its verdict is not determinable.
TEST_F(CalculationSheet, NeverSaysOkOfWhatWasNotCalculated) {
    const std::string html = Html("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,9,\nFIN\n");
    EXPECT_EQ("算定不可", CellText(html, "eccentricityCode", 1, "second"));
    EXPECT_EQ("—", CellText(html, "eccentricityModulus", 1, "second"));
    EXPECT_EQ("未確定", CellText(html, "verdict.code"));
}

}  // namespace
