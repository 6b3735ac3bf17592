#include "tables/import_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tables/one_story_tables.h"

namespace {

using testing::HasSubstr;

// What acts on the start (0) or end (1) of a bar, by its place in the model.
SixDoubles GlobalForces(const TablesImport& import, std::size_t end, std::size_t bar,
                        std::int32_t loadCase) {
    return *import.model->endForcesGlobal[end].Find(bar, loadCase);
}

}  // namespace

TEST(ImportTables, MakesTheModelInTheOrderOfItsTables) {
    const RecordedModel model = *OneStoryTables().Import().model;
    EXPECT_EQ(true, model.zUp);
    EXPECT_EQ(2, model.baseUnitSystem);
    EXPECT_EQ((std::vector{1, 2, 3, 4, 5, 6, 7, 8}), model.nodeList);
    EXPECT_EQ((std::array{6.0, 0.0, 4.0}), model.nodes.at(5).xyz);
    EXPECT_EQ(1, model.nodes.at(3).support);
    EXPECT_EQ(0, model.nodes.at(4).support);
    EXPECT_EQ((std::vector{1, 2, 3, 4, 11, 12, 13, 14}), model.memberList);
    EXPECT_EQ(8, model.members.at(6).endNodes->start);
    EXPECT_EQ((std::vector{1, 2, 3}), model.primaryLoadCases);
    EXPECT_EQ((std::vector<std::int32_t>{}), model.loadCombinations);
    EXPECT_EQ((SixDoubles{0.008, 0, 0, 0, 0, 0}), *model.displacements.Find(4, 2));
}

TEST(ImportTables, KeepsGlobalForcesAndThoseAlongTheToolsAxesApart) {
    OneStoryTables tables;
    EXPECT_EQ((SixDoubles{-10, 0, 0, 0, 0, 0}), GlobalForces(tables.Import(), 0, 0, 2));
    tables.State("endForceAxes", "tool");
    const RecordedModel model = *tables.Import().model;
    EXPECT_EQ((SixDoubles{-10, 0, 0, 0, 0, 0}), *model.endForces[0].Find(0, 2));
    EXPECT_EQ(0U, model.endForcesGlobal[0].size());
}

TEST(ImportTables, GivesNamesTheNextFreeNumbers) {
    OneStoryTables tables;
    for (std::string& row : tables.Rows("members"))
        if (row.starts_with("11,")) row = "B 1,5,6";
    tables.SetLine("members", 2, "C1,1,5");
    for (std::string& row : tables.Rows("forces"))
        if (row.substr(1, 3) == ",1,") row = row.substr(0, 1) + ",C1" + row.substr(3);
    // 2, 3, 4 are taken.
    EXPECT_EQ((std::vector{1, 2, 3, 4, 5, 12, 13, 14}), tables.Import().model->memberList);
}

TEST(ImportTables, LeavesOutWhatIsNoBarAndNamesIt) {
    OneStoryTables tables;
    tables.Rows("members")[0] += ",type";
    for (std::size_t i = 1; i < tables.Rows("members").size(); ++i)
        tables.Rows("members")[i] += ",bar";
    tables.Rows("members").push_back("S1,,,plate");
    tables.Rows("members").push_back("S2,1,99,plate");
    tables.Rows("forces").push_back("1,S1,somewhere,x,y,z");
    const TablesImport import = tables.Import();
    EXPECT_THAT(import.report, HasSubstr("8 bars\n  left out    2 of type plate (S1, S2)"));
    EXPECT_EQ(8U, import.model->members.size());
}

TEST(ImportTables, WritesOutControlCharactersOfNamesThatItLeavesOut) {
    OneStoryTables tables;
    tables.Rows("members")[0] += ",type";
    for (std::size_t i = 1; i < tables.Rows("members").size(); ++i)
        tables.Rows("members")[i] += ",bar";
    tables.Rows("members").push_back("S\x1b,,,plate");
    EXPECT_THAT(tables.Import().report, HasSubstr("1 of type plate (S\\x1b)"));
}

// All columns have internal forces at the start where end forces are stated: (10, 0, 0) kN under
// case 2.
TEST(ImportTables, WritesOutControlCharactersOfNamesInWrongStatements) {
    OneStoryTables tables;
    tables.SetLine("members", 2, "C\x07,1,5");
    for (std::string& row : tables.Rows("forces")) {
        if (row.substr(1, 3) == ",1,") row = row.substr(0, 1) + ",C\x07," + row.substr(4);
        const std::size_t push = row.find(",start,-10,");
        if (push != std::string::npos) row.erase(push + 7, 1);
    }
    const TablesImport import = tables.Import();
    ASSERT_FALSE(import.findings.wrong.empty());
    EXPECT_THAT(import.findings.wrong.front(), HasSubstr("member C\\x07 has (10, 0, 0) kN"));
}

TEST(ImportTables, TakesTheOutermostStationsInAnyOrder) {
    OneStoryTables tables;
    tables.Rows("forces")[0] = "case,member,station,f1,f2,f3";
    std::vector<std::string> rows;
    for (std::string& row : tables.Rows("forces")) {
        const std::size_t start = row.find(",start,"), end = row.find(",end,");
        if (start != std::string::npos)
            row = row.substr(0, start) + ",0.2," + row.substr(start + 7);
        if (end == std::string::npos) continue;
        rows.push_back(row.substr(0, end) + ",2,7,7,7");
        rows.push_back(row.substr(0, end) + ",2,8,8,8");  // a jump between the ends
        row = row.substr(0, end) + ",3.8," + row.substr(end + 5);
    }
    tables.Rows("forces").insert(tables.Rows("forces").end(), rows.begin(), rows.end());
    std::reverse(tables.Rows("forces").begin() + 1, tables.Rows("forces").end());
    const TablesImport import = tables.Import();
    ASSERT_TRUE(import.model.has_value()) << import.faults.front();
    EXPECT_EQ((SixDoubles{0, 0, 100, 0, 0, 0}), GlobalForces(import, 0, 3, 1));
    EXPECT_EQ((SixDoubles{0, 0, -100, 0, 0, 0}), GlobalForces(import, 1, 3, 1));
}

TEST(ImportTables, RefusesOneStationAndTwoRowsAtAnOutermostOne) {
    OneStoryTables tables;
    tables.Rows("forces") = {"case,member,station,f1,f2,f3", "1,1,0,0,0,1", "1,2,0,0,0,1",
                             "1,2,4,0,0,1", "1,2,0,0,0,2"};
    EXPECT_THAT(tables.Import(InputRoles{"input.csv", std::nullopt, {}}).faults,
                testing::ElementsAre(
                    "forces.csv: case 1, member 1: forces at one station only; both ends are "
                    "expected",
                    "forces.csv:5:5: case 1, member 2: the station at the start stands twice; one "
                    "row is expected"));
}

// 1 in = 0.0254 m; 1 kip = 4.4482216152605 kN.
TEST(ImportTables, KeepsInchAndKipAndMakesMetreAndKilonewtonOfTheRest) {
    OneStoryTables tables;
    tables.State("lengthUnit", "in");
    tables.State("forceUnit", "kip");
    RecordedModel model = *tables.Import().model;
    EXPECT_EQ(1, model.baseUnitSystem);
    EXPECT_EQ((std::array{6.0, 0.0, 4.0}), model.nodes.at(5).xyz);
    EXPECT_EQ(-10.0, (*model.endForcesGlobal[0].Find(0, 2))[0]);
    EXPECT_DOUBLE_EQ(8.0 / 25.4, (*model.displacements.Find(4, 2))[0]);

    tables.State("forceUnit", "lbf");
    model = *tables.Import().model;
    EXPECT_EQ(2, model.baseUnitSystem);
    EXPECT_DOUBLE_EQ(0.1016, model.nodes.at(5).xyz->at(2));
    EXPECT_DOUBLE_EQ(-0.044482216152605, (*model.endForcesGlobal[0].Find(0, 2))[0]);
}

// Moments are in force unit times length unit: 1 N mm = 1e-6 kN m.
TEST(ImportTables, TurnsUnitsOfMoments) {
    OneStoryTables tables;
    tables.Rows("forces")[0] += ",m1,m2,m3";
    for (std::size_t i = 1; i < tables.Rows("forces").size(); ++i)
        tables.Rows("forces")[i] += ",1000000,0,-3";
    tables.State("lengthUnit", "mm");
    tables.State("forceUnit", "N");
    const SixDoubles forces = GlobalForces(tables.Import(), 0, 0, 2);
    EXPECT_DOUBLE_EQ(1.0, forces[3]);
    EXPECT_DOUBLE_EQ(-3e-6, forces[5]);
}

// The tables' X points along -Y of the model, their Y along +X.
TEST(ImportTables, TurnsAllTablesIntoTheModelsAxes) {
    OneStoryTables tables;
    tables.State("axisX", "-Y");
    tables.State("axisY", "+X");
    tables.State("axisZ", "+Z");
    const TablesImport import = tables.Import();
    EXPECT_EQ((std::array{5.0, -6.0, 4.0}), import.model->nodes.at(7).xyz);
    EXPECT_EQ((SixDoubles{0, -0.008, 0, 0, 0, 0}), *import.model->displacements.Find(4, 2));
    EXPECT_EQ((SixDoubles{0, 10, 0, 0, 0, 0}), GlobalForces(import, 0, 0, 2));
    EXPECT_TRUE(import.findings.wrong.empty());
}

TEST(ImportTables, RefusesAxesThatAreNotRightHanded) {
    OneStoryTables tables;
    tables.State("axisX", "+Y");
    tables.State("axisY", "+X");
    tables.State("axisZ", "+Z");
    EXPECT_THAT(tables.Import().faults,
                testing::ElementsAre(testing::StartsWith("model.csv:11:7: axisZ: \"+Z\"; a "
                                                         "right-handed system")));
    OneStoryTables two;
    two.State("axisX", "+X");
    two.State("axisY", "+Y");
    EXPECT_THAT(two.Import().faults, testing::ElementsAre(HasSubstr("no row with the key axisZ")));
}

// Columns stand along global Z; a vector along X puts local y there and z along Y.
TEST(ImportTables, TakesLocalAxesFromTheirTable) {
    OneStoryTables tables;
    tables.State("endForceAxes", "localTable");
    tables.Rows("axes") = {"member,yx,yy,yz"};
    for (const char* column : {"1", "2", "3", "4"})
        tables.Rows("axes").push_back(std::string(column) + ",0,2,5");
    for (const char* beam : {"11", "12", "13", "14"})
        tables.Rows("axes").push_back(std::string(beam) + ",0,0,1");
    // Local y along global Y, local z along -X: f2 = 10 pushes along Y.
    for (std::string& row : tables.Rows("forces")) {
        if (row == "2,1,start,-10,0,0") row = "2,1,start,1,2,3";
    }
    const SixDoubles forces = GlobalForces(tables.Import(), 0, 0, 2);
    EXPECT_NEAR(-3.0, forces[0], 1e-15);
    EXPECT_NEAR(2.0, forces[1], 1e-15);
    EXPECT_NEAR(1.0, forces[2], 1e-15);
}

// The beams have no forces, so nobody needs their axes.
TEST(ImportTables, MissesLocalAxesThatAreNotInTheirTable) {
    OneStoryTables tables;
    tables.State("endForceAxes", "localTable");
    EXPECT_THAT(tables.Import().faults,
                testing::ElementsAre("axes.csv: there is no such file in the folder"));
    tables.Rows("axes") = {"member,yx,yy,yz", "2,0,0,3", "3,0,0,0", "4,1,0,0"};
    EXPECT_THAT(tables.Import().faults,
                testing::ElementsAre(HasSubstr("axes.csv:2:3: member 2: this vector is zero or "
                                               "lies along the member"),
                                     HasSubstr("axes.csv:3:3: member 3: this vector"),
                                     HasSubstr("axes.csv: member 1: no axes")));
}

TEST(ImportTables, ReportsWeightsAndShearsOfTheStories) {
    EXPECT_THAT(
        OneStoryTables().Import().report,
        HasSubstr("  Story  from mm    to mm   weight kN   case 2: X, Y kN   case 3: X, Y "
                  "kN\n"
                  "      1      0.0   4000.0       400.0       40.0      0.0        0.0     "
                  "40.0\n"));
}
