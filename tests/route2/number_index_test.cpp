#include "route2/number_index.h"

#include <gtest/gtest.h>

TEST(NumberIndex, FindsTheFirstAndTheLastOfARepeatedNumber) {
    const NumberIndex index({7, 5, 7, 9, 7});
    EXPECT_EQ(0u, index.First(7));
    EXPECT_EQ(4u, index.Last(7));
    EXPECT_EQ(1u, index.First(5));
    EXPECT_EQ(1u, index.Last(5));
}

TEST(NumberIndex, HasNoPositionForANumberThatIsNotThere) {
    const NumberIndex index({1, 2});
    EXPECT_EQ(std::nullopt, index.First(3));
    EXPECT_EQ(std::nullopt, index.Last(3));
    EXPECT_EQ(std::nullopt, NumberIndex().First(0));
}
