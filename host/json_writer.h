#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// Writes pieces of a JSON text to a file, some ten thousand characters at a time. Write errors go
/// unnoticed until the file is closed.
class JsonWriter {
public:
    /// Borrows `file`, opened for binary writing.
    explicit JsonWriter(std::FILE* file);

    /// Text that is JSON already.
    void Put(std::string_view text);

    void PutInteger(std::int32_t number);

    /// With as many digits as it takes to read back exactly this number, which must be finite.
    void PutNumber(double number);

    /// A string with its quotation marks; what is not UTF-8 in it is replaced by U+FFFD.
    void PutString(const std::string& text);

    /// Hands everything to the file.
    void Flush();

private:
    std::FILE* file_;
    std::string text_;
};
