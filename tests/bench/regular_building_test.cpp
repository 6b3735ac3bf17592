#include "bench/regular_building.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace {

std::vector<std::int32_t> Members(RegularBuilding& building) {
    std::vector<std::int32_t> members(static_cast<std::size_t>(building.GetMemberCount()));
    building.GetMemberList(members);
    return members;
}

double Height(RegularBuilding& building, std::int32_t node) {
    double x = 0.0, y = 0.0, z = 0.0;
    building.GetNodeCoordinates(node, x, y, z);
    return y;
}

}  // namespace

TEST(RegularBuilding, HasExactlyTheMembersAskedFor) {
    for (const BuildingSize size : {BuildingSize{1000, 60, 5}, BuildingSize{5000, 20, 20},
                                    BuildingSize{20000, 40, 60}, BuildingSize{7, 3, 3}}) {
        RegularBuilding building(size, "tower.qhm");
        EXPECT_EQ(size.members, building.GetMemberCount());
        EXPECT_EQ(size.loadCases,
                  building.GetPrimaryLoadCaseCount() + building.GetLoadCombinationCount());
    }
}

// 20,000 / 40 = 500 members a story, of which 125 are columns.
TEST(RegularBuilding, HasOneColumnInFourMembers) {
    EXPECT_EQ(125, RegularBuilding({20000, 40, 60}, "tower.qhm").ColumnsPerStory());
}

TEST(RegularBuilding, HasColumnsFromFloorToFloorAndLevelBeams) {
    RegularBuilding building({300, 5, 3}, "tower.qhm");
    int columns = 0;
    for (const std::int32_t member : Members(building)) {
        std::int32_t start = 0, end = 0;
        building.GetMemberIncidence(member, start, end);
        const double rise = Height(building, end) - Height(building, start);
        EXPECT_TRUE(rise == 0.0 || rise == 4.0 || rise == -4.0) << "member " << member;
        if (rise != 0.0) ++columns;
    }
    EXPECT_EQ(5 * building.ColumnsPerStory(), columns);
}

TEST(RegularBuilding, JoinsNoTwoNodesTwice) {
    RegularBuilding building({1000, 10, 5}, "tower.qhm");
    std::set<std::pair<std::int32_t, std::int32_t>> joined;
    for (const std::int32_t member : Members(building)) {
        std::int32_t start = 0, end = 0;
        building.GetMemberIncidence(member, start, end);
        EXPECT_NE(start, end);
        EXPECT_TRUE(joined.insert(std::minmax({start, end})).second) << "member " << member;
    }
}

TEST(RegularBuilding, RefusesNumbersInItsGaps) {
    RegularBuilding building({100, 5, 3}, "tower.qhm");
    std::int32_t start = 0, end = 0;
    double x = 0.0, y = 0.0, z = 0.0;
    EXPECT_THROW(building.GetMemberIncidence(102, start, end), HostCallError);
    EXPECT_THROW(building.GetMemberIncidence(0, start, end), HostCallError);
    EXPECT_THROW(building.GetNodeCoordinates(2, x, y, z), HostCallError);
    EXPECT_THROW(building.GetNodeCoordinates(1000000, x, y, z), HostCallError);
}
