#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

#include "platform/stdio_file.h"

/// Writes one table: rows of fields, comma-separated, UTF-8, lines that end with LF.
class TableWriter {
public:
    /// Creates the file. Throws std::runtime_error, as Finish does.
    explicit TableWriter(const std::string& path);

    void Text(std::string_view text);  ///< in quotation marks where it needs them
    void WholeNumber(std::int32_t number);

    /// With as many digits as it takes to read back exactly this number.
    void Number(double number);
    void Numbers(std::span<const double> numbers);
    void EndRow();

    /// To be called once, as the last thing: an error of writing is told here.
    void Finish();

private:
    void BeginField();
    void Flush();

    std::string path_;
    StdioFile file_;
    std::string row_;
    bool isRowEmpty_ = true;
};
