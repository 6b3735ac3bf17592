#include "input/input_readers.h"

#include "input/number_text.h"

namespace {

constexpr int kLastLineIndex = 100000;
constexpr std::nullopt_t kGoOn = std::nullopt;

Placed<std::int32_t> TakeInteger(InputFile& file, std::size_t index) {
    const std::int32_t value = ToInteger(file.Value(index));
    return {value, file.ValuePlace()};
}

Placed<double> TakeReal(InputFile& file, std::size_t index) {
    const double value = ToReal(file.Value(index));
    return {value, file.ValuePlace()};
}

bool IsAbove(std::int32_t story, std::size_t storyCount) {
    return story > static_cast<std::int64_t>(storyCount);
}

std::optional<Keyword> FindAllowableKeyword(const InputFile& file) {
    for (const Keyword keyword : kAllKeywords)
        if (IsAllowableKeyword(keyword) && file.IsLineOf(keyword)) return keyword;
    return std::nullopt;
}

}  // namespace

ReadingEnd ReadLines(InputFile& file,
                     const std::function<std::optional<ReadingEnd>(InputFile&)>& processLine) {
    if (!file.IsOpen()) return ReadingEnd::kNotOpened;
    for (int i = 0; i <= kLastLineIndex + 1; ++i) {
        file.ReadLine();
        if (file.IsFin()) return ReadingEnd::kAtFin;
        if (const auto end = processLine(file)) return *end;
    }
    return ReadingEnd::kLineLimit;
}

LoadCaseNumbers ReadLoadCaseNumbers(InputFile& file) {
    LoadCaseNumbers read;
    read.end = ReadLines(file, [&read](InputFile& line) {
        if (line.IsLineOf(Keyword::kDeadLoadCaseNumber))
            read.dead = TakeInteger(line, 1);
        else if (line.IsLineOf(Keyword::kEarthquakeLoadCaseNumber))
            read.earthquake = {{TakeInteger(line, 1), TakeInteger(line, 2)}};
        return kGoOn;
    });
    return read;
}

FloorLevelList ReadFloorLevels(InputFile& file) {
    FloorLevelList read;
    read.end = ReadLines(file, [&read](InputFile& line) -> std::optional<ReadingEnd> {
        if (!line.IsLineOf(Keyword::kFloorLevel)) return kGoOn;
        for (std::size_t k = 1; k < line.ListEnd(); ++k)
            read.levels.push_back(TakeReal(line, k));
        return ReadingEnd::kDone;
    });
    return read;
}

StoryMemberBlock ReadStoryMembers(InputFile& file, std::size_t storyCount) {
    StoryMemberBlock read;
    read.end = ReadLines(file, [&](InputFile& line) -> std::optional<ReadingEnd> {
        if (line.IsLineOf(Keyword::kStoryMember)) {
            if (read.line == 0) read.line = line.LineNumber();
            return kGoOn;
        }
        if (read.line == 0) return kGoOn;
        if (!line.StartsWithStoryNumber()) return ReadingEnd::kDone;

        const std::int32_t story = ToInteger(line.FirstField());
        if (IsAbove(story, storyCount)) return ReadingEnd::kNoSuchStory;
        for (std::size_t k = 1; k < line.ListEnd(); ++k)
            read.entries.push_back({story, TakeInteger(line, k)});
        return kGoOn;
    });
    return read;
}

ReportedMemberList ReadReportedMembers(InputFile& file) {
    ReportedMemberList read;
    read.end = ReadLines(file, [&read](InputFile& line) -> std::optional<ReadingEnd> {
        if (!line.IsLineOf(Keyword::kMemberDeformAngle)) return kGoOn;
        for (std::size_t k = 1; k < line.ListEnd(); ++k)
            read.members.push_back(TakeInteger(line, k));
        return ReadingEnd::kDone;
    });
    return read;
}

AllowableValueList ReadAllowableValues(InputFile& file, std::size_t storyCount) {
    AllowableValueList read;
    std::optional<Keyword> current;
    read.end = ReadLines(file, [&](InputFile& line) -> std::optional<ReadingEnd> {
        if (const auto named = FindAllowableKeyword(line)) {
            current = named;
            return kGoOn;
        }
        if (!line.StartsWithStoryNumber()) current.reset();
        if (!current) return kGoOn;

        const std::int32_t story = ToInteger(line.FirstField());
        if (IsAbove(story, storyCount)) {
            read.lastKeyword = *current;
            return ReadingEnd::kNoSuchStory;
        }
        read.entries.push_back({*current, story, TakeReal(line, 1)});
        return kGoOn;
    });
    return read;
}
