#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_encoding.h"

/// Why an input file cannot be read.
enum class InputTextFault {
    kNone,
    kMissing,
    kFolder,
    kNoRegularFile,  ///< a pipe, a device
    kRefused,        ///< it is there and cannot be opened
};

/// No run reads beyond this many bytes: 100,002 reads of 199 characters. Nothing more is read of a
/// longer file.
inline constexpr std::size_t kMostInputBytes = std::size_t{100002} * 199;

/// The text of a Route 2 Input file as its readers get it, for whoever looks at it more than once.
/// Line ends are line feeds.
class InputText {
public:
    InputText() = default;
    explicit InputText(std::string text);

    const std::string& Text() const { return text_; }
    const EncodingFound& Encoding() const { return encoding_; }
    bool HasByteOrderMark() const;

    /// A line as an editor counts, from 1, without its line feed and without a byte-order mark;
    /// empty beyond the end.
    std::string_view Line(std::size_t number) const;

    /// Bytes at the start of a line that no editor shows: those of a byte-order mark.
    std::size_t HiddenBytes(std::size_t lineNumber) const;

    /// Column of a byte of the line as an editor counts, from 1: characters in UTF-8, else bytes.
    /// A byte-order mark has none.
    std::size_t Column(std::size_t lineNumber, std::size_t offset) const;

    /// Any part of the text in UTF-8.
    std::string Display(std::string_view part) const { return ToUtf8(part, encoding_.encoding); }

private:
    std::string text_;
    EncodingFound encoding_;
    std::vector<std::size_t> lineStarts_;  ///< of as many lines as a run can read
};

struct InputTextRead {
    InputText text;
    InputTextFault fault = InputTextFault::kNone;
};
InputTextRead ReadInputText(const std::string& path);
