#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "sheet/sheet_content.h"
#include "sheet/words.h"

/// How stories, floors, directions and load cases are called on a sheet. Borrows the content.
class SheetNames {
public:
    explicit SheetNames(const SheetContent& content) : content_(content) {}

    /// As it stands in a column of stories: its number, or the name that the input file gives.
    std::string StoryInTable(int story) const;

    /// As it stands by itself: "2階", "story 2", or the name of the input file.
    FilledWords Story(int story) const;

    /// Of a floor, counted from the lowest, from 0: "2FL", or the name of the input file.
    std::string Floor(std::size_t level) const;

    /// "X", and the second plan direction's global axis.
    std::string Direction(std::size_t axis) const;

    /// The letter of a plan coordinate: "x", and "y" or "z".
    std::string Coordinate(std::size_t axis) const;

    /// The number of a load case, with its name, and whether it is a combination.
    FilledWords LoadCase(std::int32_t number) const;

private:
    const SheetContent& content_;
};

/// The plan axis across a direction.
inline std::size_t Across(std::size_t axis) {
    return axis == kX ? kZ : kX;
}
