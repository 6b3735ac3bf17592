#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tables/table_encoding.h"

/// Where something stands in a table, as an editor counts: lines from 1, columns from 1 in
/// characters. 0: no place in particular.
struct TablePlace {
    std::size_t line = 0;
    std::size_t column = 0;
};

/// One field of a row: bytes in the table's encoding, without the blanks around and without its
/// quotes. Good until the next row is read.
struct CsvField {
    std::string_view text;
    std::size_t at = 0;  ///< its first byte within the row, the quote of a quoted one
};

/// Something in a table that cannot be read as rows of fields.
struct CsvFault {
    TablePlace place;
    std::string text;
};

/// The rows of a comma-separated table, one after the other.
///
/// Commas, semicolons or tabs, whichever the first row has most of, separate fields. A field that
/// begins with a quotation mark ends with one; separators and line ends in between belong to it,
/// and a doubled mark stands for one. Lines that begin with # and rows without any text are passed
/// over. Lines end with LF, CR LF or CR. Takes as much memory as the longest row it admits.
class CsvRows {
public:
    /// Longest row, and the most fields that one may have.
    static constexpr std::size_t kLongestRow = std::size_t{1} << 20U;
    static constexpr std::size_t kMostFields = 4096;

    /// Borrows `file`, open for binary reading and at its beginning.
    CsvRows(std::FILE* file, TableEncoding encoding);

    /// Goes to the next row; false at the end of the table or where no more can be read.
    bool Next();

    const std::vector<CsvField>& Fields() const { return fields_; }

    /// What is wrong with this row, whose fields are then not to be used. After Next has returned
    /// false: why the table ends here.
    const std::optional<CsvFault>& Fault() const { return fault_; }

    /// Place of a byte of this row.
    TablePlace PlaceAt(std::size_t at) const;

    /// Place behind the last character of this row.
    TablePlace PlaceOfEnd() const { return PlaceAt(rowLength_); }

    TableEncoding encoding() const { return encoding_; }

private:
    void FillBuffer();
    void GoBehindRow();
    std::string_view Rest() const;
    std::string_view Row() const { return Rest().substr(0, rowLength_); }
    bool GiveUp(TablePlace place, std::string text);
    bool SplitRow();
    void ChooseSeparator(std::string_view heading);
    void SplitPlainLine(std::string_view line);
    bool SplitQuotedRow();
    std::size_t TakeQuotedField(std::size_t at);
    std::size_t TakePlainField(std::size_t at);
    void AddField(std::string_view text, std::size_t at);

    std::FILE* file_;
    TableEncoding encoding_;
    std::vector<char> buffer_;  ///< holds the whole row and what the file has behind it
    std::size_t filled_ = 0;    ///< bytes in buffer_
    bool isAllRead_ = false;
    std::size_t rowStart_ = 0;   ///< in buffer_
    std::size_t rowLength_ = 0;  ///< without the line end
    std::size_t line_ = 1;       ///< of the row's beginning
    char separator_ = 0;         ///< 0: no row yet
    std::vector<CsvField> fields_;
    std::deque<std::string> unquoted_;  ///< fields of this row that held doubled quotation marks
    std::optional<CsvFault> fault_;
};
