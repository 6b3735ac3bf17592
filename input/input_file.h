#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "input/input_place.h"
#include "input/keywords.h"
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

    /// Reads from memory what ReadInputText has read from a file; borrows it.
    static InputFile OfText(std::string_view text);

    bool IsOpen() const { return isInMemory_ || file_ != nullptr; }
    void ReadLine();

    /// Nothing was left to read: the line before counts again. Of an empty file, an empty line.
    bool IsAtEnd() const { return isAtEnd_; }

    /// The line that ends the data.
    bool IsFin() const { return line_.starts_with(kFin); }

    /// A story line begins with a digit 1 to 9.
    bool StartsWithStoryNumber() const {
        return !line_.empty() && line_.front() >= '1' && line_.front() <= '9';
    }

    bool HasComma() const { return commaCount_ > 0; }
    std::size_t CommaCount() const { return commaCount_; }

    /// Field 0: a keyword, or the story number of a story line.
    const std::string& FirstField() const { return firstField_; }
    bool IsLineOf(Keyword keyword) const { return firstField_ == NameOf(keyword); }

    /// Takes field `index`, from 1, into the value buffer and gives what that buffer holds.
    const std::string& Value(std::size_t index);

    /// Where the text of the value buffer stands.
    const InputPlace& ValuePlace() const { return valuePlace_; }

    /// One more than the index of the last value of a list: the text after the last comma is
    /// never read, so a list ends with a comma.
    std::size_t ListEnd() const { return commaCount_; }

    /// Number of the line in the file, as an editor counts: the parts of a longer line share it.
    std::size_t LineNumber() const { return lineNumber_; }

    /// Where what was read begins within the line of that number, in bytes; 0 but for the rest of
    /// a longer line.
    std::size_t OffsetInLine() const { return offsetInLine_; }

    /// What was read, with its line feed.
    const std::string& Line() const { return line_; }

private:
    InputFile() = default;
    bool ReadCharacter(char& character);
    std::string_view Field(std::size_t index) const;

    StdioFile file_;
    std::string_view text_;  ///< what is left of the text in memory
    bool isInMemory_ = false;
    bool isAtEnd_ = false;
    std::string line_;
    std::size_t lineNumber_ = 0;
    std::size_t offsetInLine_ = 0;
    std::size_t commaCount_ = 0;
    std::string firstField_;
    std::string value_;
    InputPlace valuePlace_;
};
