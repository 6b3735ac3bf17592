#include "host/number_positions.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NumberPositions, IsEmptyAtFirst) {
    EXPECT_EQ(std::nullopt, NumberPositions().Find(0));
}

TEST(NumberPositions, FindsEveryNumberAtItsPosition) {
    NumberPositions positions;
    for (const std::int32_t number : {7, -7, 0, std::numeric_limits<std::int32_t>::max(),
                                      std::numeric_limits<std::int32_t>::min()})
        positions.Add(number, static_cast<std::size_t>(static_cast<std::uint32_t>(number) / 2));
    EXPECT_EQ(3u, positions.Find(7));
    EXPECT_EQ(0x7FFFFFFCu, positions.Find(-7));
    EXPECT_EQ(0u, positions.Find(0));
    EXPECT_EQ(0x3FFFFFFFu, positions.Find(std::numeric_limits<std::int32_t>::max()));
    EXPECT_EQ(0x40000000u, positions.Find(std::numeric_limits<std::int32_t>::min()));
    EXPECT_EQ(std::nullopt, positions.Find(1));
}

TEST(NumberPositions, ANumberThatIsThereKeepsItsPosition) {
    NumberPositions positions;
    EXPECT_EQ(4u, positions.Add(9, 4));
    EXPECT_EQ(4u, positions.Add(9, 5));
    EXPECT_EQ(4u, positions.Find(9));
}

// Multiples of a power of two, the worst that a hash by the last bits could meet.
TEST(NumberPositions, HoldsManyNumbersFarApart) {
    NumberPositions positions;
    for (std::int32_t i = 0; i < 20000; ++i)
        EXPECT_EQ(static_cast<std::size_t>(i),
                  positions.Add(i * 65536, static_cast<std::size_t>(i)));
    for (std::int32_t i = 0; i < 20000; ++i) {
        ASSERT_EQ(static_cast<std::size_t>(i), positions.Find(i * 65536));
        ASSERT_EQ(std::nullopt, positions.Find(i * 65536 + 1));
    }
}
