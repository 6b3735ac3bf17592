#include "tables/name_numbers.h"

#include <gtest/gtest.h>

namespace {

NameNumbers Names(const std::vector<std::string>& list) {
    NameNumbers names;
    for (const std::string& name : list)
        names.Add(name);
    return names;
}

}  // namespace

TEST(NameNumbers, KeepNumbersAndGiveNamesTheNextFreeOnes) {
    EXPECT_EQ((std::vector{2, 1, 5, 3, 4}), Names({"2", "A", "5", "B", "C"}).Numbers());
    EXPECT_EQ((std::vector{-3, 1, 2}), Names({"-3", "1.0", "2a"}).Numbers());
}

TEST(NameNumbers, AreNotUsedUpByWhatNeedsNone) {
    EXPECT_EQ((std::vector{0, 1, 7, 2}),
              Names({"plate", "A", "7", "B"}).Numbers({false, true, false, true}));
}

TEST(NameNumbers, FindANumberHoweverItIsWritten) {
    const NameNumbers names = Names({"07", "A 7"});
    EXPECT_EQ(0U, names.Find("7"));
    EXPECT_EQ(0U, names.Find("007"));
    EXPECT_EQ(1U, names.Find("A 7"));
    EXPECT_EQ(std::nullopt, names.Find("a 7"));
    EXPECT_EQ(std::nullopt, names.Find("8"));
}
