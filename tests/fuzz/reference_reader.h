#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// What a Route 2 Input file says, read a second time in the plainest way: character by character
/// from memory, with fixed buffers, no shared code with the readers under test.
struct ReferenceInput {
    bool hasFin = false;  ///< FIN stands within the line limit; nothing below counts otherwise
    std::int32_t deadLoadCase = 1;
    std::array<std::int32_t, 2> earthquakeLoadCases{1, 1};
    std::vector<double> floorLevels;  ///< as written; of the first FloorLevel line
    std::set<std::int32_t> reportedMembers;

    /// One value of one story; a story beyond `storyCount` ends the reading.
    struct Allowable {
        std::string keyword;
        std::int32_t story;
        double value;
    };
    std::vector<Allowable> allowables;
};

/// `storyCount`: allowable values are read up to the first story number above it.
ReferenceInput ReadReference(std::string_view file, std::size_t storyCount);
