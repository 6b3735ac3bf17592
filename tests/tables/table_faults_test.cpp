#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tables/one_story_tables.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

}  // namespace

TEST(TablesOfAFolder, OfASoundBuildingHaveNoFault) {
    const TablesImport import = OneStoryTables().Import();
    EXPECT_EQ("", Joined(import.faults));
    EXPECT_TRUE(import.model.has_value());
}

// Each changes one line of the sound tables; the fault begins with its file, line and column.
TEST(TableFault, IsOneLineWithPlaceAndWhatWasExpected) {
    const struct {
        const char* table;
        std::size_t line;
        const char* text;
        const char* place;
        const char* expected;
    } faults[] = {
        // Statements.
        {"model", 2, "verticalAxis,X", "model.csv:2:14: ", "Y or Z is expected"},
        {"model", 2, "verticalAxis,z", "model.csv:2:14: ", "Y or Z is expected"},
        {"model", 2, "verticalAxis,", "model.csv:2:14: ", "no value; Y or Z is expected"},
        {"model", 2, "verticalaxis,Z", "model.csv: ", "no row with the key verticalAxis"},
        {"model", 3, "lengthUnit,inch", "model.csv:3:12: ", "m, cm, mm, in or ft is expected"},
        {"model", 4, "displacementUnit,km", "model.csv:4:18: ", "m, cm, mm, in or ft"},
        {"model", 5, "forceUnit,t", "model.csv:5:11: ", "kN, N, tf, kgf, kip or lbf"},
        {"model", 6, "endForceAxes,local",
         "model.csv:6:14: ", "global, tool, localStandard or localTable"},
        {"model", 7, "endForceSense,tension",
         "model.csv:7:15: ", "onMember, onNode, section or sectionCompression"},
        {"model", 7, "endForceSense,sectionCompression",
         "model.csv:7:15: ", "with endForceAxes global"},
        {"model", 8, "sauce,somewhere", "model.csv: ", "no row with the key source"},
        {"model", 8, "forceUnit,kN", "model.csv:8:1: ", "the key forceUnit stands twice"},
        {"model", 1, "key,text", "model.csv:1:1: ", "no column value; expected key,value"},

        // Nodes and supports.
        {"nodes", 1, "node,x,y", "nodes.csv:1:1: ", "no column z; expected node,x,y,z"},
        {"nodes", 1, "node,x,y,z,x", "nodes.csv:1:1: ", "two columns have the heading \"x\""},
        {"nodes", 6, "5,0,0,4m", "nodes.csv:6:7: ", "\"4m\" is no number"},
        {"nodes", 6, "5,0,,4", "nodes.csv:6:5: ", "no value; a number is expected"},
        {"nodes", 6, "5,0,0", "nodes.csv:6:6: ", "no value; a number is expected"},
        {"nodes", 6, "5,0,0,inf", "nodes.csv:6:7: ", "not finite"},
        {"nodes", 6, "5,0,0,1e999", "nodes.csv:6:7: ", "not finite"},
        {"nodes", 6, "5,0,0,nan", "nodes.csv:6:7: ", "no number"},
        {"nodes", 6, ",0,0,4", "nodes.csv:6:1: ", "no value under node"},
        {"nodes", 6, "4,0,0,4", "nodes.csv:6:1: ", "node 4 stands twice"},
        {"nodes", 6, "04,0,0,4", "nodes.csv:6:1: ", "node 04 stands twice"},
        {"nodes", 6, "5000000000,0,0,4", "nodes.csv:6:1: ", "32 bits"},
        {"nodes", 6, "5,0,0,\"4,5\"",
         "nodes.csv:6:7: ", "\"4,5\" has a decimal comma; a decimal point is expected: 4.5"},
        {"nodes", 6, "5,0,0,4,5", "nodes.csv:6:9: ", "a decimal comma"},
        {"supports", 2, "9", "supports.csv:2:1: ", "unknown node \"9\""},
        {"supports", 3, "1", "supports.csv:3:1: ", "node 1 stands twice"},
        {"supports", 1, "node,ux,uy", "supports.csv:1:1: ", "but not uz"},

        // Members and cases.
        {"members", 2, "1,1,9", "members.csv:2:5: ", "unknown node \"9\""},
        {"members", 2, "1,1,1", "members.csv:2:1: ", "member 1 has no length"},
        {"members", 3, "1,2,6", "members.csv:3:1: ", "member 1 stands twice"},
        {"members", 1, "member,from,to", "members.csv:1:1: ", "no column start, end"},
        {"cases", 2, "1.5,DL,primary", "cases.csv:2:1: ", "no whole number"},
        {"cases", 2, "DL,1,primary", "cases.csv:2:1: ", "no whole number"},
        {"cases", 3, "1,EX,primary", "cases.csv:3:1: ", "case 1 stands twice"},
        {"cases", 3, "2,EX,seismic", "cases.csv:3:6: ", "primary or combination is expected"},

        // Answers.
        {"displacements", 2, "4,1,0,0,0", "displacements.csv:2:1: ", "unknown case 4"},
        {"displacements", 2, "1,9,0,0,0", "displacements.csv:2:3: ", "unknown node \"9\""},
        {"displacements", 2, "1,2,0,0,0", "displacements.csv:3:3: ", "case 1, node 2 stands twice"},
        {"displacements", 2, "1,1,0,0,-", "displacements.csv:2:9: ", "no number"},
        {"displacements", 1, "case,node,ux,uy,uz,rx",
         "displacements.csv:1:1: ", "has rx, but not ry, rz"},
        {"forces", 2, "1,9,start,0,0,100", "forces.csv:2:3: ", "unknown member \"9\""},
        {"forces", 2, "1,1,2,0,0,100", "forces.csv:2:5: ", "start or end, i or j, 0 or 1"},
        {"forces", 2, "1,1,end,0,0,100", "forces.csv:3:3: ", "case 1, member 1, end stands twice"},
        {"forces", 1, "case,member,where,f1,f2,f3", "forces.csv:1:1: ", "no column end"},
    };
    for (const auto& fault : faults) {
        OneStoryTables tables;
        tables.SetLine(fault.table, fault.line, fault.text);
        const TablesImport import = tables.Import();
        EXPECT_FALSE(import.model.has_value()) << fault.text;
        EXPECT_THAT(import.faults, testing::Contains(testing::AllOf(StartsWith(fault.place),
                                                                    HasSubstr(fault.expected))))
            << fault.text << "\n"
            << Joined(import.faults);
    }
}

TEST(TableFault, OfATableThatIsNotThereNamesItOnceAndNoUnknownNodes) {
    for (const char* table :
         {"model", "nodes", "supports", "members", "cases", "displacements", "forces"}) {
        OneStoryTables tables;
        tables.Remove(table);
        EXPECT_THAT(tables.Import().faults,
                    ElementsAre(std::string(table) + ".csv: there is no such file in the folder"));
    }
}

TEST(TableFault, OfATableWithoutRowsIsNoRowsAtAll) {
    for (const char* table : {"nodes", "supports", "members", "cases", "displacements", "forces"}) {
        OneStoryTables tables;
        tables.Rows(table).resize(1);
        EXPECT_THAT(
            tables.Import().faults,
            testing::Contains(std::string(table) + ".csv: no rows at all below the heading"))
            << table;
        tables.Rows(table).clear();
        EXPECT_THAT(tables.Import().faults,
                    testing::Contains(std::string(table) +
                                      ".csv: the table is empty; a heading row is expected"))
            << table;
    }
}

TEST(TableFault, OfAllTablesAreToldTogetherInTheOrderOfTheTables) {
    OneStoryTables tables;
    tables.SetLine("forces", 9, "1,4,end,0,0,x");
    tables.SetLine("forces", 3, "1,1,end,0,0,y");
    tables.SetLine("nodes", 6, "5,0,0,z");
    tables.SetLine("model", 5, "forceUnit,w");
    EXPECT_THAT(tables.Import().faults,
                ElementsAre(StartsWith("model.csv:5:11: "), StartsWith("nodes.csv:6:7: "),
                            StartsWith("forces.csv:3:13: "), StartsWith("forces.csv:9:13: ")));
}

// 24 rows of displacements and 24 of forces, each with three texts that are no numbers: 144 faults.
TEST(TableFault, OfManyTheFirst50AreToldAndAllAreCounted) {
    OneStoryTables tables;
    for (const char* table : {"displacements", "forces"})
        for (std::size_t line = 2; line <= tables.Rows(table).size(); ++line) {
            std::string& row = tables.Rows(table)[line - 1];
            row = row.substr(0, row.find(',', table[0] == 'd' ? 2 : 4)) + ",x,x,x";
        }
    const TablesImport import = tables.Import();
    EXPECT_EQ(50U, import.faults.size());
    EXPECT_EQ(144U, import.faultCount);
    EXPECT_THAT(import.faults.front(), StartsWith("displacements.csv:2:5: "));
}

// What stands behind the mark could not be read, so nothing of it is missed.
TEST(TableFault, ThatEndsATableIsTheOnlyOneOfIt) {
    OneStoryTables forces;
    forces.SetLine("forces", 4, "1,\"2,start,0,0,100");
    EXPECT_THAT(forces.Import().faults,
                ElementsAre("forces.csv:4:3: this quotation mark is not closed"));
    OneStoryTables nodes;
    nodes.SetLine("nodes", 4, "\"3,0,5,0");
    EXPECT_THAT(nodes.Import().faults,
                ElementsAre("nodes.csv:4:1: this quotation mark is not closed"));
}

TEST(TableFault, OfATableFullOfThemIsNotReadToItsEnd) {
    OneStoryTables tables;
    tables.Rows("supports").resize(150'000, "nowhere");
    const TablesImport import = tables.Import();
    EXPECT_EQ(100'001U, import.faultCount);
    EXPECT_FALSE(import.areAllFaultsCounted);
}

TEST(MissingAnswer, IsAFaultWithoutALine) {
    OneStoryTables tables;
    std::erase(tables.Rows("displacements"), "2,7,8,0,0");
    std::erase(tables.Rows("forces"), "3,2,start,0,-10,0");
    std::erase(tables.Rows("forces"), "3,4,start,0,-10,0");
    std::erase(tables.Rows("forces"), "3,4,end,0,10,0");
    EXPECT_THAT(tables.Import().faults,
                ElementsAre("displacements.csv: case 2, node 7: no displacement",
                            "forces.csv: case 3, member 2: no forces at the start",
                            "forces.csv: case 3, member 4: no forces"));
}

TEST(MissingAnswer, IsNoFaultOfANodeThatOnlyLevelMembersHave) {
    OneStoryTables tables;
    tables.Rows("nodes").push_back("9,3,0,4");
    tables.SetLine("members", 6, "11,5,9");
    tables.Rows("members").push_back("15,9,6");
    EXPECT_THAT(tables.Import().faults, ElementsAre());
}

// Without an input file a case that has any row must be complete, and one without may be empty.
TEST(MissingAnswer, CountsForEveryCaseThatHasAnyRow) {
    OneStoryTables tables;
    tables.Rows("cases").push_back("4,wind,primary");
    EXPECT_THAT(tables.Import().faults, ElementsAre());
    tables.Rows("displacements").push_back("4,5,1,0,0");
    // 7 other nodes, and the forces of 4 columns.
    EXPECT_EQ(11U, tables.Import().faultCount);
}

TEST(MissingAnswer, CountsForTheCasesThatAnInputFileNames) {
    OneStoryTables tables;
    tables.Rows("cases").push_back("4,wind,primary");
    tables.Rows("displacements").push_back("4,5,1,0,0");
    EXPECT_EQ(0U, tables.ImportForInput().faultCount);
    EXPECT_EQ(11U, tables.Import(InputRoles{"input.csv", 1, {2, 4}}).faultCount);
    EXPECT_THAT(tables.Import(InputRoles{"input.csv", 1, {2, 5}}).faults,
                ElementsAre("cases.csv: case 5: no row; input.csv names it as an earthquake case"));
}

TEST(TablesOfAFolder, PassOverFurtherColumnsRowsWithoutTextAndComments) {
    OneStoryTables tables;
    tables.Rows("nodes")[0] = "label,z,node,y,x";
    for (std::size_t i = 1; i < tables.Rows("nodes").size(); ++i) {
        const std::string row = tables.Rows("nodes")[i];  // n,x,y,z
        tables.Rows("nodes")[i] =
            std::string("A,") + row[6] + "," + row[0] + "," + row[4] + "," + row[2];
    }
    tables.Rows("nodes").insert(tables.Rows("nodes").begin(), {"# exported today", "", ",,,"});
    const TablesImport import = tables.Import();
    EXPECT_EQ("", Joined(import.faults));
    EXPECT_EQ((std::array{6.0, 5.0, 4.0}), import.model->nodes.at(7).xyz);
}

TEST(TablesOfAFolder, CautionAboutAKeyThatIsNone) {
    OneStoryTables tables;
    tables.Rows("model").push_back("axisx,+X");
    EXPECT_THAT(tables.Import().cautions,
                ElementsAre("model.csv:9:1: unknown key \"axisx\" is passed over; write axisX"));
}
