#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tables/one_story_tables.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// Calls `change` with the fields of each row of a table.
template <typename Change>
void ChangeRows(OneStoryTables& tables, const std::string& table, const Change& change) {
    for (std::size_t i = 1; i < tables.Rows(table).size(); ++i) {
        std::vector<std::string> fields(1);
        for (const char c : tables.Rows(table)[i])
            if (c == ',')
                fields.emplace_back();
            else
                fields.back() += c;
        change(fields);
        std::string row;
        for (const std::string& field : fields)
            row += (row.empty() ? "" : ",") + field;
        tables.Rows(table)[i] = row;
    }
}

std::string Negative(const std::string& number) {
    if (number == "0") return number;
    return number.starts_with('-') ? number.substr(1) : "-" + number;
}

void AddReactions(OneStoryTables& tables, const std::string& inX) {
    tables.Rows("reactions") = {"case,node,fx,fy,fz"};
    for (const char* node : {"1", "2", "3", "4"})
        tables.Rows("reactions").push_back(std::string("2,") + node + "," + inX + ",0,0");
}

}  // namespace

TEST(StatementChecks, PassASoundBuilding) {
    const TablesImport import = OneStoryTables().Import();
    EXPECT_THAT(import.findings.wrong, IsEmpty());
    EXPECT_THAT(import.findings.unusual, IsEmpty());
    EXPECT_EQ(6U, import.findings.passed.size());
    EXPECT_THAT(import.findings.notChecked, ElementsAre(HasSubstr("reactions")));
}

TEST(StatementChecks, FindInternalForcesThatAreStatedAsEndForces) {
    // Internal forces of a column with 100 kN of compression and a shear of 10: at the start the
    // end force with the sign turned, at the end the end force itself.
    OneStoryTables tables;
    ChangeRows(tables, "forces", [](std::vector<std::string>& fields) {
        if (fields[2] != "start") return;
        for (std::size_t i = 3; i < 6; ++i)
            fields[i] = Negative(fields[i]);
    });
    EXPECT_THAT(tables.Import().findings.wrong,
                Contains(AllOf(StartsWith("model.csv:7:15: endForceSense onMember: "),
                               HasSubstr("4 of 4 members (1, 2, 3, 4) do not cancel"),
                               HasSubstr("member 1 has (10, 0, 0) kN at the start and (10, 0, 0) "
                                         "kN at the end"),
                               HasSubstr("endForceSense section would fit"))));
    tables.State("endForceSense", "section");
    EXPECT_THAT(tables.Import().findings.wrong, IsEmpty());
}

TEST(StatementChecks, FindForcesOnJointsThatAreStatedAsEndForces) {
    OneStoryTables tables;
    tables.State("endForceSense", "onNode");
    EXPECT_THAT(
        tables.Import().findings.wrong,
        ElementsAre(AllOf(StartsWith("model.csv:7:15: endForceSense onNode: under case 1, the dead "
                                     "load, the members cut above the base (1, 2, 3, 4) press "
                                     "down with -400 kN in sum"),
                          HasSubstr("endForceSense onMember, or exchanging start and end")),
                    // Four columns, 10 kN times 8 mm each.
                    AllOf(HasSubstr("under case 2, an earthquake, the shears act against the "
                                    "drifts: their products sum up to -320 kN mm (members 1, 2, "
                                    "3, 4)"),
                          HasSubstr("likewise under case 3"))));
}

TEST(StatementChecks, FindCompressionThatIsStatedAsTension) {
    OneStoryTables tables;
    tables.State("endForceAxes", "localStandard");
    tables.State("endForceSense", "section");
    // A column: x up, y along X, z along Y. N is compression here, shears are internal forces.
    ChangeRows(tables, "forces", [](std::vector<std::string>& fields) {
        const bool isStart = fields[2] == "start";
        fields = {fields[0],
                  fields[1],
                  fields[2],
                  isStart ? fields[5] : Negative(fields[5]),
                  isStart ? Negative(fields[3]) : fields[3],
                  isStart ? Negative(fields[4]) : fields[4]};
    });
    EXPECT_THAT(tables.Import().findings.wrong,
                ElementsAre(AllOf(StartsWith("model.csv:7:15: endForceSense section: under case 1"),
                                  HasSubstr("endForceSense sectionCompression would fit"))));
    tables.State("endForceSense", "sectionCompression");
    EXPECT_THAT(tables.Import().findings.wrong, IsEmpty());
}

TEST(StatementChecks, FindAnotherVerticalAxis) {
    OneStoryTables tables;
    tables.State("verticalAxis", "Y");
    const auto isFound = ElementsAre(AllOf(
        StartsWith("model.csv:2:14: verticalAxis Y: the held nodes (1, 2, 3, 4) lie at 50 % of the "
                   "height"),
        HasSubstr("verticalAxis Z would fit")));
    // Two of the beams then stand upright, and have no forces.
    EXPECT_THAT(tables.Import().cautions, isFound);
    for (const char* beam : {"12", "14"})
        for (const char* loadCase : {"1,", "2,", "3,"})
            for (const char* end : {",start,0,0,0", ",end,0,0,0"})
                tables.Rows("forces").push_back(std::string(loadCase) + beam + end);
    EXPECT_THAT(tables.Import().findings.wrong, isFound);
}

TEST(StatementChecks, FindABuildingOnItsHead) {
    OneStoryTables tables;
    tables.State("axisX", "+X");
    tables.State("axisY", "-Y");
    tables.State("axisZ", "-Z");
    EXPECT_THAT(tables.Import().findings.wrong,
                ElementsAre(HasSubstr("the building stands on its head")));
}

TEST(StatementChecks, FindForcesAlongOtherAxesByADeadLoadThatPushesSideways) {
    OneStoryTables tables;
    tables.State("endForceAxes", "localStandard");
    // f3 is then taken along the column's local z, Y: the base would push 400 kN along Y.
    EXPECT_THAT(tables.Import().findings.wrong,
                Contains(AllOf(StartsWith("model.csv:6:14: endForceAxes localStandard: "),
                               HasSubstr("with (0, 400, 0) kN"))));
}

TEST(StatementChecks, FindExchangedLocalAxesByAShearAcrossTheDrift) {
    OneStoryTables tables;
    tables.State("endForceAxes", "localStandard");
    // x, z, y in place of x, y, z.
    ChangeRows(tables, "forces", [](std::vector<std::string>& fields) {
        fields = {fields[0], fields[1], fields[2], fields[5], fields[4], fields[3]};
    });
    EXPECT_THAT(tables.Import().findings.wrong,
                ElementsAre(AllOf(StartsWith("model.csv:6:14: endForceAxes localStandard: "),
                                  HasSubstr("a shear of (0, 40, 0) kN across their mean drift of "
                                            "(8, 0, 0) mm"))));
}

// 6 m by 5 m by 4 m, 400 kN, 12 mm.
TEST(StatementChecks, NameTheUnitThatWouldFit) {
    const struct {
        const char* key;
        const char* unit;
        const char* figure;
        const char* fitting;
    } wrong[] = {
        {"lengthUnit", "cm", "the largest extent of the building is 0.06 m", "lengthUnit m"},
        {"lengthUnit", "mm", "the largest extent of the building is 0.006 m", "lengthUnit m"},
        {"displacementUnit", "m", "12000 mm (case 3, node 5), is 3 of", "displacementUnit mm"},
        {"displacementUnit", "ft", "3658 mm (case 3, node 5), is 0.9144 of", "mm"},
        {"forceUnit", "N", "0.4 kN on the base, 0.01333 kN/m2 of a plan of 6 m by 5 m", "kN"},
        {"forceUnit", "tf", "3923 kN on the base, 130.8 kN/m2", "forceUnit kN"},
        {"forceUnit", "lbf", "1.779 kN on the base, 0.05931 kN/m2", "kN"},
    };
    for (const auto& statement : wrong) {
        OneStoryTables tables;
        tables.State(statement.key, statement.unit);
        EXPECT_THAT(tables.Import().findings.wrong,
                    Contains(AllOf(HasSubstr(std::string(statement.key) + " " + statement.unit),
                                   HasSubstr(statement.figure), HasSubstr(statement.fitting),
                                   HasSubstr("would fit"))))
            << statement.key << " " << statement.unit;
    }
}

// 12 mm of 4000 are usual, 120 are not, nor are 1.2.
TEST(StatementChecks, CautionAboutAUnitThatIsTenTimesOff) {
    OneStoryTables tables;
    tables.State("displacementUnit", "cm");
    const TablesImport import = tables.Import();
    EXPECT_THAT(import.findings.wrong, IsEmpty());
    EXPECT_THAT(import.findings.unusual,
                ElementsAre(AllOf(StartsWith("model.csv:4:18: displacementUnit cm: "),
                                  HasSubstr("0.0001 to 0.02 is usual; is it mm?"))));
}

TEST(StatementChecks, HoldShearsAgainstReactionsWithinOnePercent) {
    const struct {
        const char* reaction;
        bool isRight;
    } cases[] = {{"-10", true},   {"-10.09", true}, {"-9.92", true}, {"-10.2", false},
                 {"-9.8", false}, {"10", false},    {"0", false}};
    for (const auto& each : cases) {
        OneStoryTables tables;
        AddReactions(tables, each.reaction);
        const TablesImport import = tables.Import();
        EXPECT_EQ(each.isRight, import.findings.wrong.empty()) << each.reaction;
    }
    OneStoryTables tables;
    AddReactions(tables, "-8");
    EXPECT_THAT(tables.Import().findings.wrong,
                ElementsAre(AllOf(StartsWith("reactions.csv: under case 2"),
                                  HasSubstr("(-32, 0, 0) kN"), HasSubstr("(-40, 0, 0) kN"),
                                  HasSubstr("25 % apart"), HasSubstr("(1, 2, 3, 4)"))));
}

// Drifts alone are known: no force can be turned, and none weighs anything.
TEST(StatementChecks, PassABuildingWhoseForcesAreAllZero) {
    OneStoryTables tables;
    ChangeRows(tables, "forces", [](std::vector<std::string>& fields) {
        for (std::size_t i = 3; i < 6; ++i)
            fields[i] = "0";
    });
    const StatementFindings findings = tables.Import().findings;
    EXPECT_THAT(findings.wrong, IsEmpty());
    EXPECT_THAT(findings.unusual, ElementsAre(StartsWith("forces.csv: case 1: all forces are zero"),
                                              StartsWith("forces.csv: case 2: "),
                                              StartsWith("forces.csv: case 3: ")));
}

TEST(StatementChecks, SayThatNothingIsHeld) {
    OneStoryTables tables;
    tables.Rows("supports") = {"node,ux,uy,uz,rx,ry,rz", "1,0,0,0,1,1,1"};
    EXPECT_THAT(tables.Import().findings.unusual,
                Contains("supports.csv: no node that a member stands on is held; the feet of the "
                         "building are expected"));
}

// Case 2 moves 8 mm sideways and not downwards, case 1 downwards only.
TEST(RolesOfCases, FollowFromTheDisplacementsWithoutAnInputFile) {
    EXPECT_THAT(OneStoryTables().Import().report,
                HasSubstr("dead load 1, earthquakes 2, 3 (by the displacements)"));
    OneStoryTables tables;
    tables.SetLine("cases", 4, "3,EY,combination");
    EXPECT_THAT(tables.Import().report, HasSubstr("dead load 1, earthquakes 2 (by"));
}

TEST(RolesOfCases, AreTheInputFilesWhereThereIsOne) {
    EXPECT_THAT(OneStoryTables().Import(InputRoles{"job.csv", 1, {3}}).report,
                HasSubstr("dead load 1, earthquakes 3 (by job.csv)"));
}
