#include "tests/fuzz/reference_reader.h"

#include <cstdlib>
#include <limits>

namespace {

constexpr std::size_t kLineBuffer = 200;
constexpr std::size_t kMostLines = 100001;

// The file with every carriage return before a line feed taken out.
std::string WithoutCarriageReturns(std::string_view file) {
    std::string text;
    for (std::size_t i = 0; i < file.size(); ++i) {
        if (file[i] == '\r' && i + 1 < file.size() && file[i + 1] == '\n') continue;
        text += file[i];
    }
    return text;
}

// What fgets with a buffer of 200 would hand out, one entry per read.
std::vector<std::string> Reads(const std::string& text) {
    std::vector<std::string> reads;
    std::string line;
    for (const char c : text) {
        line += c;
        if (c == '\n' || line.size() == kLineBuffer - 1) {
            reads.push_back(line);
            line.clear();
        }
    }
    if (!line.empty()) reads.push_back(line);
    return reads;
}

std::size_t Commas(const std::string& line) {
    std::size_t count = 0;
    for (const char c : line)
        if (c == ',') ++count;
    return count;
}

std::string FieldOf(const std::string& line, std::size_t index) {
    std::string field;
    std::size_t at = 0;
    for (const char c : line) {
        if (c == ',') {
            if (at == index) return field;
            ++at;
        } else if (c == '\n') {
            break;
        } else if (at == index) {
            field += c;
        }
    }
    return field;
}

std::int32_t Whole(const std::string& text) {
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (value > std::numeric_limits<std::int32_t>::max())
        return std::numeric_limits<std::int32_t>::max();
    if (value < std::numeric_limits<std::int32_t>::min())
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(value);
}

bool IsStoryLine(const std::string& line) {
    return !line.empty() && line[0] >= '1' && line[0] <= '9';
}

// The two buffers of a reader's pass.
struct Buffers {
    std::string keyword;
    std::string value;

    void TakeKeyword(const std::string& line) {
        if (Commas(line) > 0) keyword = FieldOf(line, 0);
    }
    const std::string& TakeValue(const std::string& line, std::size_t index) {
        if (Commas(line) > 0 && Commas(line) >= index) value = FieldOf(line, index);
        return value;
    }
};

void ReadLoadCases(const std::vector<std::string>& lines, ReferenceInput& input) {
    Buffers buffers;
    for (const std::string& line : lines) {
        buffers.TakeKeyword(line);
        if (buffers.keyword == "DeadLoadCaseNumber")
            input.deadLoadCase = Whole(buffers.TakeValue(line, 1));
        if (buffers.keyword == "EarthquakeLoadCaseNumber") {
            input.earthquakeLoadCases[0] = Whole(buffers.TakeValue(line, 1));
            input.earthquakeLoadCases[1] = Whole(buffers.TakeValue(line, 2));
        }
    }
}

// Calls `take` with the values of the first line of a list keyword.
template <typename Take>
void ReadList(const std::vector<std::string>& lines, const char* keyword, const Take& take) {
    Buffers buffers;
    for (const std::string& line : lines) {
        buffers.TakeKeyword(line);
        if (buffers.keyword != keyword) continue;
        for (std::size_t k = 1; k < Commas(line); ++k)
            take(buffers.TakeValue(line, k));
        return;
    }
}

void ReadAllowables(const std::vector<std::string>& lines, std::size_t storyCount,
                    ReferenceInput& input) {
    Buffers buffers;
    std::string state;
    for (const std::string& line : lines) {
        buffers.TakeKeyword(line);
        const std::string& keyword = buffers.keyword;
        if (keyword == "AllowStoryDeformAngle" || keyword == "AllowStoryStiffRatio" ||
            keyword == "AllowStoryEccentricityModulus") {
            state = keyword;
        } else if (!IsStoryLine(line)) {
            state.clear();
        } else if (!state.empty()) {
            const std::int32_t story = Whole(keyword);
            if (story > static_cast<long long>(storyCount)) return;
            input.allowables.push_back(
                {state, story, std::strtod(buffers.TakeValue(line, 1).c_str(), nullptr)});
        }
    }
}

}  // namespace

ReferenceInput ReadReference(std::string_view file, std::size_t storyCount) {
    ReferenceInput input;
    std::vector<std::string> lines;
    for (const std::string& line : Reads(WithoutCarriageReturns(file))) {
        if (line.substr(0, 3) == "FIN") {
            // The 100,002nd read may still be FIN; what stood there before did not count.
            input.hasFin = lines.size() <= kMostLines;
            break;
        }
        lines.push_back(line);
    }
    if (!input.hasFin) return input;
    ReadLoadCases(lines, input);
    ReadList(lines, "FloorLevel", [&](const std::string& value) {
        input.floorLevels.push_back(std::strtod(value.c_str(), nullptr));
    });
    ReadList(lines, "MemberDeformAngle",
             [&](const std::string& value) { input.reportedMembers.insert(Whole(value)); });
    ReadAllowables(lines, storyCount, input);
    return input;
}
