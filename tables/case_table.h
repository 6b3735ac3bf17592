#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "tables/table_faults.h"
#include "tables/table_reader.h"

/// A row of cases.csv.
struct TableCase {
    std::int32_t number = 0;
    std::string name;  ///< UTF-8, may be empty
    bool isPrimary = true;
};

/// What cases.csv says, in the order of its rows.
class TableCases {
public:
    static TableCases Read(const std::string& folder, TableFaults& faults);

    const std::vector<TableCase>& Rows() const { return rows_; }
    std::optional<std::size_t> Find(std::int32_t number) const;

    bool IsRead() const { return isRead_; }

    /// The case that a row of another table is about, by its place in Rows. An unknown one is a
    /// fault, unless cases.csv could not be read.
    std::optional<std::size_t> PlaceIn(TableReader& table, std::size_t column) const;

private:
    std::vector<TableCase> rows_;
    std::unordered_map<std::int32_t, std::size_t> places_;
    bool isRead_ = false;
};
