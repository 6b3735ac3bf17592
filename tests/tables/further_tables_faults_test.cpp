// Faults of the columns and tables that not every building has: held directions, types of members,
// axes, reactions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tables/one_story_tables.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(HeldDirections, AreZeroOrOne) {
    OneStoryTables tables;
    tables.Rows("supports") = {"node,ux,uy,uz", "1,1,1,2", "2,1,1,1", "3,1,1,1", "4,1,1,yes"};
    EXPECT_THAT(tables.Import().faults,
                ElementsAre("supports.csv:2:7: \"2\"; 0 (free) or 1 (held) is expected",
                            "supports.csv:5:7: \"yes\"; 0 (free) or 1 (held) is expected"));
}

TEST(HeldDirections, OfTurnsAloneAreNoSupport) {
    OneStoryTables tables;
    tables.Rows("supports") = {"node,rx,ry,rz", "1,1,1,1"};
    EXPECT_THAT(tables.Import().faults,
                Contains("supports.csv: the heading row has rx, ry, rz, but not ux, uy, uz; all or "
                         "none expected"));
}

TEST(TypesOfMembers, HaveABarAmongThem) {
    OneStoryTables tables;
    std::vector<std::string>& rows = tables.Rows("members");
    rows.front() += ",type";
    for (std::size_t i = 1; i < rows.size(); ++i)
        rows[i] += ",wall";
    EXPECT_THAT(
        tables.Import().faults,
        Contains(HasSubstr("members.csv: no member of the type bar; without columns there is "
                           "nothing to check")));
}

TEST(AxesOfATable, StandOnceForEachMember) {
    OneStoryTables tables;
    tables.State("endForceAxes", "localTable");
    tables.Rows("axes") = {"member,yx,yy,yz"};
    for (const char* const member : {"1", "2", "3", "4", "4"})
        tables.Rows("axes").push_back(std::string(member) + ",0,1,0");
    EXPECT_THAT(tables.Import().faults,
                Contains("axes.csv:6:1: member 4 stands twice; one row is expected"));
}

TEST(Reactions, StandOnceForEachCaseAndNode) {
    OneStoryTables tables;
    tables.Rows("reactions") = {"case,node,fx,fy,fz", "1,1,0,0,100", "1,1,0,0,100"};
    EXPECT_THAT(tables.Import().faults,
                Contains("reactions.csv:3:3: case 1, node 1 stands twice; one row is expected"));
}

// 1e308 tf are 9.80665e308 kN, and an angle is kept in single precision.
TEST(NumbersOfATable, StayWithinThoseOfTheModel) {
    OneStoryTables forces;
    forces.State("forceUnit", "tf");
    forces.SetLine("forces", 2, "1,1,start,0,0,1e308");
    EXPECT_THAT(forces.Import().faults, Contains("forces.csv:2:15: too large a number"));
    OneStoryTables members;
    members.Rows("members").front() += ",beta";
    members.Rows("members")[1] += ",1e39";
    EXPECT_THAT(members.Import().faults,
                Contains("members.csv:2:7: too large a number for an angle in degrees"));
}
