#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/stdio_file.h"
#include "tables/csv_rows.h"
#include "tables/name_numbers.h"
#include "tables/table_faults.h"

/// A table of a folder, row by row: finds its columns by their headings and takes their fields as
/// what they should be. Every fault goes to `faults`, with its place and what was expected.
class TableReader {
public:
    /// Where a column stands in the rows; nothing for one that the table does not have.
    using Column = std::optional<std::size_t>;

    /// Opens the table and reads its heading. Borrows `faults`. A table that is not there, is no
    /// file or no text is a fault.
    TableReader(const std::string& folder, TableName table, TableFaults& faults);

    /// Whether the table could be read up to here.
    bool IsOpen() const { return rows_.has_value(); }

    /// Whether all of it has been read; of a table that was not, rows may be missing.
    bool IsReadToEnd() const { return IsOpen() && !isGivenUp_; }

    /// A column that the table may have or not. One that stands there twice is a fault.
    Column Find(std::string_view name);

    /// Columns that the table must have. A fault names all that are missing, and the table counts
    /// as one that cannot be read. `expected` is its whole heading.
    template <std::size_t count>
    std::array<std::size_t, count> Require(const char* const (&names)[count],
                                           const char* expected) {
        std::array<std::size_t, count> columns{};
        Require(names, count, expected, columns.data());
        return columns;
    }

    /// Columns of which the table has all or none; some of them without the others are a fault.
    template <std::size_t count>
    std::optional<std::array<std::size_t, count>> FindAll(const char* const (&names)[count]) {
        std::array<std::size_t, count> columns{};
        if (!FindAll(names, count, columns.data())) return std::nullopt;
        return columns;
    }

    /// Goes to the next row that can be used; false at the end. A table without any row is a
    /// fault, told then.
    bool NextRow();

    // Fields of the row. What is no such thing is a fault and has no value.

    std::optional<std::string> Text(std::size_t column);  ///< UTF-8; an empty one is a fault
    std::optional<double> Number(std::size_t column);

    /// A new name of a node or member, UTF-8: a text, or a whole number of 32 bits.
    std::optional<std::string> Name(std::size_t column);

    /// Place of a `what` that the table `of` has. When that table could not be read, an unknown
    /// name is no fault.
    std::optional<std::size_t> Place(std::size_t column, const NameNumbers& names, const char* what,
                                     TableName of, bool isRead);

    std::optional<std::int32_t> WholeNumber(std::size_t column);

    /// Bytes of a field as the table has them; empty where the row is too short.
    std::string_view Bytes(std::size_t column) const;

    /// UTF-8; may be empty.
    std::string TextOrNothing(std::size_t column) const;

    TablePlace PlaceOf(std::size_t column) const;
    TablePlace PlaceOfRow() const { return rows_->PlaceAt(0); }

    void Fault(std::size_t column, const std::string& text);
    void Fault(const std::string& text) { faults_.Add(table_, text); }

    /// A fault behind which the rest of the table is not read.
    void GiveUp(std::size_t column, const std::string& text);

private:
    void Open(const std::string& path);
    void ReadHeading();
    bool FindEncoding(const std::string& path, TableEncoding& encoding);
    void FaultAtByte(const std::string& path, std::uint64_t at, const std::string& text);
    void Close(TablePlace place, const std::string& text);
    void Require(const char* const* names, std::size_t count, const char* expected,
                 std::size_t* columns);
    bool FindAll(const char* const* names, std::size_t count, std::size_t* columns);
    void GiveUp(const std::string& text);
    bool HasTooManyFields();
    std::string NameOf(std::size_t column) const;

    TableName table_;
    TableFaults& faults_;
    StdioFile file_;
    std::optional<CsvRows> rows_;
    std::vector<std::string> heading_;
    TablePlace headingPlace_;
    std::size_t rowCount_ = 0;
    bool isGivenUp_ = false;
};
