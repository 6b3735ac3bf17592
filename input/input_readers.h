#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "input/input_file.h"
#include "input/input_place.h"
#include "input/keywords.h"

// The five readers of the Route 2 Input file. Each goes through a file that was just opened, for
// its own keywords only, and gives what it took, with the place where it stands.

/// Why a reader stopped.
enum class ReadingEnd {
    kNotOpened,  ///< the file cannot be opened
    kAtFin,      ///< the line that ends the data
    kDone,       ///< the reader had what it came for
    kLineLimit,  ///< more than 100,001 lines before FIN; without FIN, the last one counts so often
    kNoSuchStory,  ///< a story number above the number of stories
};

/// True unless the reader failed.
inline bool EndsWell(ReadingEnd end) {
    return end == ReadingEnd::kAtFin || end == ReadingEnd::kDone;
}

/// The reading loop of all readers: hands every line before FIN to `processLine`, until that gives
/// a reason to stop.
ReadingEnd ReadLines(InputFile& file,
                     const std::function<std::optional<ReadingEnd>(InputFile&)>& processLine);

/// What the lines of the load cases set; nothing where there is no such line. The last line of a
/// keyword counts.
struct LoadCaseNumbers {
    std::optional<Placed<std::int32_t>> dead;

    /// [0] X, [1] Z(or Y). One buffer serves both values: a line that gives no second value repeats
    /// the first, and a line without a comma repeats the last value that was read for both.
    std::optional<std::array<Placed<std::int32_t>, 2>> earthquake;

    ReadingEnd end = ReadingEnd::kNotOpened;
};
LoadCaseNumbers ReadLoadCaseNumbers(InputFile& file);

/// The values of the first FloorLevel line, mm, as written.
struct FloorLevelList {
    std::vector<Placed<double>> levels;
    ReadingEnd end = ReadingEnd::kNotOpened;
};
FloorLevelList ReadFloorLevels(InputFile& file);

/// The StoryMember block.
struct StoryMemberBlock {
    /// A member named for a story, from 1; stories beyond the number of stories do not occur.
    struct Entry {
        std::int32_t story = 0;
        Placed<std::int32_t> member;
    };
    std::size_t line = 0;  ///< of the keyword; 0: there is no block
    std::vector<Entry> entries;
    ReadingEnd end = ReadingEnd::kNotOpened;
};
StoryMemberBlock ReadStoryMembers(InputFile& file, std::size_t storyCount);

/// The values of the first MemberDeformAngle line, as written.
struct ReportedMemberList {
    std::vector<Placed<std::int32_t>> members;
    ReadingEnd end = ReadingEnd::kNotOpened;
};
ReportedMemberList ReadReportedMembers(InputFile& file);

/// Allowable values in the order of the file; a later one of the same keyword and story wins.
struct AllowableValueList {
    struct Entry {
        Keyword keyword = Keyword::kAllowStoryDeformAngle;
        std::int32_t story = 0;  ///< from 1
        Placed<double> value;
    };
    std::vector<Entry> entries;
    ReadingEnd end = ReadingEnd::kNotOpened;
    Keyword lastKeyword = Keyword::kAllowStoryDeformAngle;  ///< whose line names no such story
};
AllowableValueList ReadAllowableValues(InputFile& file, std::size_t storyCount);
