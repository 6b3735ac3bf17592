// Which members the details of a story list when only those that matter most are asked for.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/support/sheet_of_run.h"
#include "tests/support/small_building.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

// Twelve columns 1 to 12, 3.5 m high, at x = 0 to 11 m and z = 0 and 4 m in turn. All are as stiff;
// column i carries 100 + i kN of weight.
void AddTwelveColumns(FakeHost& host) {
    for (std::int32_t i = 1; i <= 12; ++i) {
        host.Node(i, i - 1.0, 0, i % 2 * 4.0, true).Node(i + 20, i - 1.0, 3.5, i % 2 * 4.0);
        host.Member(i, i, i + 20);
        host.Displace(2, i + 20, 0.007, 0, 0).Displace(3, i + 20, 0, 0, 0.0035);
        host.Force(1, i, 0, 100.0 + i, 0, 0).Force(2, i, 0, 0, 14, 0).Force(3, i, 0, 0, 0, -14);
    }
    host.Member(99, 21, 22);
    host.primaryLoadCases = {1, 2, 3};
    host.loadCombinations = {};
}

class ChosenMembers : public testing::Test {
protected:
    ChosenMembers() { AddTwelveColumns(host); }

    std::string Details(SheetDetail detail) {
        SheetOptions options;
        options.detail = detail;
        return Section(SheetOfRun(host, kSmallBuildingInput, options), "A1");
    }

    // Numbers at the heads of the rows of a table.
    static std::vector<int> RowsOf(const std::string& html, const std::string& table) {
        const std::string opening = "<th scope=\"row\">";
        std::vector<int> rows;
        const std::size_t begin = html.find("data-table=\"" + table + "\"");
        const std::size_t end = html.find("</table>", begin);
        for (std::size_t at = html.find(opening, begin); at < end; at = html.find(opening, at + 1))
            rows.push_back(std::stoi(html.substr(at + opening.size())));
        return rows;
    }

    FakeHost host;
};

}  // namespace

TEST_F(ChosenMembers, AreAllUnlessTheWorstAreAskedFor) {
    const std::string html = Details(SheetDetail::kAll);
    EXPECT_EQ(12u, RowsOf(html, "A1").size());
    EXPECT_EQ(12u, RowsOf(html, "A1axial").size());
    EXPECT_THAT(html, Not(HasSubstr("further members")));
}

// x_R = 5.5 m: columns 6 and 7, at 5 and 6 m, add least to the torsional stiffness.
TEST_F(ChosenMembers, AreTheTenOfMostTorsionalStiffnessInTheirOwnOrder) {
    const std::string html = Details(SheetDetail::kWorst);
    EXPECT_THAT(RowsOf(html, "A1"), ElementsAre(1, 2, 3, 4, 5, 8, 9, 10, 11, 12));
    EXPECT_THAT(html, HasSubstr("2 further members, in the sums"));
}

TEST_F(ChosenMembers, AreTheTenOfMostWeightAmongTheAxialForces) {
    EXPECT_THAT(RowsOf(Details(SheetDetail::kWorst), "A1axial"),
                ElementsAre(3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST_F(ChosenMembers, AreNoneWithoutDetails) {
    EXPECT_EQ("", Details(SheetDetail::kNone));
}
