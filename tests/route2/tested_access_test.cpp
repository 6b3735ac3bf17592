#include "route2/tested_access.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What an access that must fail says.
template <typename Access>
std::string Failure(const Access& access) {
    try {
        access();
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "no failure";
}

}  // namespace

TEST(TestedAccess, GivesTheElementsOfAVector) {
    std::vector<int> elements{7, 8, 9};
    EXPECT_EQ(7, At(elements, std::int64_t{0}));
    EXPECT_EQ(9, At(elements, std::size_t{2}));
    At(elements, std::size_t{1}) = 5;
    EXPECT_EQ(5, elements[1]);
}

TEST(TestedAccess, EndsTheRunOutsideOfAVector) {
    std::vector<int> elements{7, 8, 9};
    const std::vector<int> empty;
    EXPECT_EQ("invalid vector subscript", Failure([&] { At(elements, std::size_t{3}); }));
    EXPECT_EQ("invalid vector subscript", Failure([&] { At(elements, std::int64_t{-1}); }));
    EXPECT_EQ("invalid vector subscript", Failure([&] { At(empty, std::size_t{0}); }));
}
