#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/stdio_file.h"

/// A Route 2 Input file, read line by line and field by field.
///
/// The file is text, as the C library of the platform reads it: on Windows the character 0x1A ends
/// it, as it always has there.
///
/// At most 199 characters are taken per read; the rest of a longer line is a line of its own. A
/// carriage return just before a line feed does not count and is not kept. At the end of the file
/// the last line stays and counts again at every further read.
///
/// Fields are separated by commas, without quoting or trimming. Two buffers hold them: one for
/// field 0, one for the value field read last. A field goes into its buffer only when the line
/// has at least one comma and at least as many commas as the field's index; otherwise the buffer
/// keeps its text. So a line without a comma has the keyword and the value of the lines before it.
class InputFile {
public:
    /// Opens `path`; see IsOpen. Only a regular file can be opened: no folder, pipe or device.
    explicit InputFile(const std::string& path);

    bool IsOpen() const { return file_ != nullptr; }
    void ReadLine();

    /// The line that ends the data begins with FIN; anything may follow.
    bool IsFin() const { return line_.starts_with("FIN"); }

    /// A story line begins with a digit 1 to 9.
    bool StartsWithStoryNumber() const {
        return !line_.empty() && line_.front() >= '1' && line_.front() <= '9';
    }

    bool HasComma() const { return commaCount_ > 0; }

    /// Field 0: a keyword, or the story number of a story line.
    const std::string& Keyword() const { return keyword_; }

    /// Takes field `index`, from 1, into the value buffer and gives what that buffer holds.
    const std::string& Value(std::size_t index);

    /// One more than the index of the last value of a list: the text after the last comma is
    /// never read, so a list ends with a comma.
    std::size_t ListEnd() const { return commaCount_; }

    /// Number of the line in the file, as an editor counts.
    std::size_t LineNumber() const { return lineNumber_; }

private:
    bool ReadCharacter(char& character);
    std::string_view Field(std::size_t index) const;

    StdioFile file_;
    bool isAtEnd_ = false;
    std::string line_;
    std::size_t lineNumber_ = 0;
    std::size_t commaCount_ = 0;
    std::string keyword_;
    std::string value_;
};

/// Whole number at the start of `text`, as the C library's atoi reads it: leading blanks are
/// skipped, 0 when there is none. A number beyond 32 bits becomes the nearest 32-bit number.
std::int32_t ToInteger(const std::string& text);

/// Real number at the start of `text`, as the C library's atof reads it; 0 when there is none.
double ToReal(const std::string& text);

enum class LineResult {
    kGoOn,    ///< read the next line
    kFinish,  ///< the reader has what it came for
    kFail,    ///< the reader has warned and gives up
};

/// The reading loop of all readers: hands every line before FIN to `processLine`.
///
/// True at FIN or when the reader finishes early. False, with a warning in the log, when the file
/// cannot be opened or more than 100,001 lines stand before FIN (a file without FIN always gets
/// there, because its last line counts again and again); false when the reader fails.
bool ReadInputFile(std::FILE* log, const std::string& path, const char* lineLimitWarning,
                   const std::function<LineResult(InputFile&)>& processLine);

/// The two earthquake load case numbers of an EarthquakeLoadCaseNumber line.
///
/// One buffer serves both values: a line that gives no second value repeats the first, and a line
/// without a comma repeats the last value that was read for both.
std::array<std::int32_t, 2> ReadEarthquakeLoadCaseNumbers(InputFile& line);

/// Numbers of lines without a comma that change the earthquake load cases, because they stand
/// where the keyword of the line before still counts. Empty when the file cannot be read.
std::vector<std::size_t> FindLinesThatRepeatEarthquakeCase(const std::string& path);
