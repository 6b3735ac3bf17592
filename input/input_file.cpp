#include "input/input_file.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "log/processing_log.h"
#include "platform/regular_file.h"

namespace {

constexpr std::size_t kMaxLineLength = 199;
constexpr int kLastLineIndex = 100000;

}  // namespace

InputFile::InputFile(const std::string& path) : file_(OpenRegularFile(path, ReadMode::kText)) {}

bool InputFile::ReadCharacter(char& character) {
    const int read = ReadTextCharacter(file_.get());
    if (read == EOF) return false;
    character = static_cast<char>(read);
    return true;
}

void InputFile::ReadLine() {
    if (isAtEnd_) return;
    char character = '\0';
    if (!ReadCharacter(character)) {
        isAtEnd_ = true;
        return;
    }
    const bool isNewLine = lineNumber_ == 0 || line_.ends_with('\n');
    if (isNewLine) ++lineNumber_;

    line_.assign(1, character);
    while (character != '\n' && line_.size() < kMaxLineLength && ReadCharacter(character))
        line_.push_back(character);

    commaCount_ = static_cast<std::size_t>(std::count(line_.begin(), line_.end(), ','));
    if (HasComma()) keyword_ = Field(0);
}

std::string_view InputFile::Field(std::size_t index) const {
    std::string_view rest = line_;
    for (std::size_t i = 0; i < index; ++i)
        rest.remove_prefix(rest.find(',') + 1);
    return rest.substr(0, rest.find_first_of(",\n"));
}

const std::string& InputFile::Value(std::size_t index) {
    if (HasComma() && commaCount_ >= index) value_ = Field(index);
    return value_;
}

std::int32_t ToInteger(const std::string& text) {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    constexpr long kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr long kHighest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
}

double ToReal(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

bool ReadInputFile(std::FILE* log, const std::string& path, const char* lineLimitWarning,
                   const std::function<LineResult(InputFile&)>& processLine) {
    InputFile file(path);
    if (!file.IsOpen()) {
        LogWarning(log, "Cannot open data file " + path + ".");
        return false;
    }
    for (int i = 0; i <= kLastLineIndex + 1; ++i) {
        file.ReadLine();
        if (file.IsFin()) return true;
        const LineResult result = processLine(file);
        if (result != LineResult::kGoOn) return result == LineResult::kFinish;
    }
    LogWarning(log, lineLimitWarning);
    return false;
}

std::array<std::int32_t, 2> ReadEarthquakeLoadCaseNumbers(InputFile& line) {
    const std::int32_t x = ToInteger(line.Value(1));
    const std::int32_t z = ToInteger(line.Value(2));
    return {x, z};
}

std::vector<std::size_t> FindLinesThatRepeatEarthquakeCase(const std::string& path) {
    std::vector<std::size_t> lineNumbers;
    InputFile file(path);
    if (!file.IsOpen()) return lineNumbers;
    std::array<std::int32_t, 2> current{1, 1};
    for (int i = 0; i <= kLastLineIndex; ++i) {
        file.ReadLine();
        if (file.IsFin()) break;
        if (file.Keyword() == "DeadLoadCaseNumber") file.Value(1);  // shares the value buffer
        if (file.Keyword() != "EarthquakeLoadCaseNumber") continue;
        const auto previous = current;
        current = ReadEarthquakeLoadCaseNumbers(file);
        if (!file.HasComma() && current != previous) lineNumbers.push_back(file.LineNumber());
    }
    return lineNumbers;
}
