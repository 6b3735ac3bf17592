#include "bench/regular_building.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

namespace {

double Height(const RecordedModel& model, std::int32_t node) {
    return (*model.nodes[*model.FindNode(node)].xyz)[1];
}

}  // namespace

TEST(RegularBuilding, HasExactlyTheMembersAskedFor) {
    for (const BuildingSize size : {BuildingSize{1000, 60, 5}, BuildingSize{5000, 20, 20},
                                    BuildingSize{20000, 40, 60}, BuildingSize{7, 3, 3}}) {
        const RecordedModel model = MakeRegularBuilding(size).model;
        EXPECT_EQ(size.members, model.memberCount);
        EXPECT_EQ(size.loadCases, *model.primaryLoadCaseCount + *model.loadCombinationCount);
    }
}

// 20,000 / 40 = 500 members a story, of which 125 are columns.
TEST(RegularBuilding, HasOneColumnInFourMembers) {
    EXPECT_EQ(125, MakeRegularBuilding({20000, 40, 60}).columnsPerStory);
}

TEST(RegularBuilding, HasColumnsFromFloorToFloorAndLevelBeams) {
    const RegularBuilding building = MakeRegularBuilding({300, 5, 3});
    int columns = 0;
    for (const RecordedMember& member : building.model.members) {
        const double rise = Height(building.model, member.endNodes->end) -
                            Height(building.model, member.endNodes->start);
        EXPECT_TRUE(rise == 0.0 || rise == 4.0 || rise == -4.0) << "member " << member.number;
        if (rise != 0.0) ++columns;
    }
    EXPECT_EQ(5 * building.columnsPerStory, columns);
}

TEST(RegularBuilding, JoinsNoTwoNodesTwice) {
    const RecordedModel model = MakeRegularBuilding({1000, 10, 5}).model;
    std::set<std::pair<std::int32_t, std::int32_t>> joined;
    for (const RecordedMember& member : model.members) {
        const auto [start, end] = *member.endNodes;
        EXPECT_NE(start, end);
        EXPECT_TRUE(joined.insert(std::minmax({start, end})).second) << "member " << member.number;
    }
}

TEST(RegularBuilding, HasGapsBetweenItsNumbers) {
    const RecordedModel model = MakeRegularBuilding({100, 5, 3}).model;
    EXPECT_TRUE(model.FindMember(101).has_value());
    EXPECT_FALSE(model.FindMember(102).has_value());
    EXPECT_TRUE(model.FindNode(1).has_value());
    EXPECT_FALSE(model.FindNode(2).has_value());
}

// Six floors of nodes under seven load cases; five stories of columns, both ends, under three.
TEST(RegularBuilding, HasDisplacementsOfAllNodesAndForcesOfItsColumns) {
    const RegularBuilding building = MakeRegularBuilding({100, 5, 7});
    const auto columns = static_cast<std::size_t>(building.columnsPerStory);
    EXPECT_EQ(6 * columns * 7, building.model.displacements.size());
    EXPECT_EQ(5 * columns * 3, building.model.endForces[0].size());
    EXPECT_EQ(5 * columns * 3, building.model.endForces[1].size());
}
