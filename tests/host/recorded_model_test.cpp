#include "host/recorded_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <tuple>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

constexpr SixDoubles kOne{1, 1, 1, 1, 1, 1};
constexpr SixDoubles kTwo{2, 2, 2, 2, 2, 2};

}  // namespace

TEST(AnswerTable, IsEmptyAtFirst) {
    const AnswerTable table;
    EXPECT_EQ(nullptr, table.Find(0, 1));
    EXPECT_EQ(0u, table.size());
    EXPECT_THAT(table.LoadCases(), IsEmpty());
}

TEST(AnswerTable, FindsWhatWasStoredForThatPositionAndLoadCaseOnly) {
    AnswerTable table;
    table.Store(3, 7, kOne);
    table.Store(5, 8, kTwo);
    ASSERT_NE(nullptr, table.Find(3, 7));
    EXPECT_EQ(kOne, *table.Find(3, 7));
    EXPECT_EQ(kTwo, *table.Find(5, 8));
    EXPECT_EQ(nullptr, table.Find(3, 8));
    EXPECT_EQ(nullptr, table.Find(5, 7));
    EXPECT_EQ(nullptr, table.Find(2, 7));
    EXPECT_EQ(nullptr, table.Find(1000000, 7));
}

TEST(AnswerTable, ASecondAnswerReplacesTheFirst) {
    AnswerTable table;
    table.Store(0, 1, kOne);
    table.Store(0, 1, kTwo);
    EXPECT_EQ(kTwo, *table.Find(0, 1));
    EXPECT_EQ(1u, table.size());
}

#ifdef __linux__

// Memory of this process in use now, bytes.
std::size_t MemoryInUse() {
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0;
    std::size_t resident = 0;
    file >> all >> resident;
    return resident * 4096;
}

// A file of a few hundred kilobytes can say this. One index for every position up to the last would
// be 3000 * 100,000 * 4 bytes = 1.2 GB; a page of 512 indices and the list of pages are below 2 kB.
TEST(AnswerTable, OneLateAnswerInEachOfManyLoadCasesTakesLittleMemory) {
    const std::size_t before = MemoryInUse();
    AnswerTable table;
    for (std::int32_t loadCase = 1; loadCase <= 3000; ++loadCase)
        table.Store(100000, loadCase, {1.0 * loadCase, 0, 0, 0, 0, 0});
    EXPECT_LT(MemoryInUse() - before, 100'000'000U);
    ASSERT_NE(nullptr, table.Find(100000, 2999));
    EXPECT_EQ(2999.0, (*table.Find(100000, 2999))[0]);
    EXPECT_EQ(nullptr, table.Find(99999, 2999));
    EXPECT_EQ(nullptr, table.Find(5, 2999));
}

#endif

TEST(AnswerTable, GivesItsLoadCasesAscending) {
    AnswerTable table;
    for (const std::int32_t loadCase : {101, -5, 2, std::numeric_limits<std::int32_t>::max()})
        table.Store(0, loadCase, kOne);
    EXPECT_THAT(table.LoadCases(),
                ElementsAre(-5, 2, 101, std::numeric_limits<std::int32_t>::max()));
}

TEST(AnswerTable, ShowsEveryAnswerOnce) {
    AnswerTable table;
    table.Store(3, 7, kOne);
    table.Store(700, 7, kTwo);
    table.Store(3, -8, kTwo);
    std::vector<std::tuple<std::size_t, std::int32_t, SixDoubles>> seen;
    table.ForEach([&seen](std::size_t position, std::int32_t loadCase, const SixDoubles& answer) {
        seen.emplace_back(position, loadCase, answer);
    });
    EXPECT_THAT(seen, UnorderedElementsAre(std::tuple(3, 7, kOne), std::tuple(700, 7, kTwo),
                                           std::tuple(3, -8, kTwo)));
}

TEST(RecordedModel, AddsEveryNumberOnceInFirstOrder) {
    RecordedModel model;
    EXPECT_EQ(0u, model.AddNode(9));
    EXPECT_EQ(1u, model.AddNode(-4));
    EXPECT_EQ(0u, model.AddNode(9));
    EXPECT_EQ(2u, model.nodes.size());
    EXPECT_EQ(9, model.nodes[0].number);
    EXPECT_EQ(-4, model.nodes[1].number);
}

TEST(RecordedModel, KeepsNodesAndMembersOfTheSameNumberApart) {
    RecordedModel model;
    model.AddNode(1);
    EXPECT_EQ(0u, *model.FindNode(1));
    EXPECT_EQ(std::nullopt, model.FindMember(1));
    model.AddMember(2);
    model.AddMember(1);
    EXPECT_EQ(1u, *model.FindMember(1));
    EXPECT_EQ(std::nullopt, model.FindNode(2));
}

TEST(RecordedModel, HasNoAnswersAtFirst) {
    const RecordedModel model;
    EXPECT_EQ(std::nullopt, model.modelPath);
    EXPECT_EQ(std::nullopt, model.baseUnitSystem);
    EXPECT_EQ(std::nullopt, model.nodeList);
    EXPECT_EQ(std::nullopt, model.FindNode(0));
}
