#pragma once

#include <cstddef>

/// A stretch of the input file, from where a value came or which is meant.
struct InputPlace {
    std::size_t line = 0;    ///< as an editor counts, from 1; 0: nowhere
    std::size_t offset = 0;  ///< bytes from the start of the line
    std::size_t length = 0;  ///< bytes
};

/// Where a finding stands that is about the file as a whole.
inline constexpr InputPlace kWholeFile{1, 0, 0};

/// A value of the input file and where it stands.
template <typename Value>
struct Placed {
    Value value{};
    InputPlace place;
};
