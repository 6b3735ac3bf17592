#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "tables/csv_rows.h"

/// The tables of a folder, in the order in which faults are told.
enum class TableName {
    kModel,
    kNodes,
    kSupports,
    kMembers,
    kCases,
    kDisplacements,
    kForces,
    kAxes,
    kReactions,
};

inline constexpr std::array<TableName, 9> kAllTables{
    TableName::kModel,   TableName::kNodes, TableName::kSupports,
    TableName::kMembers, TableName::kCases, TableName::kDisplacements,
    TableName::kForces,  TableName::kAxes,  TableName::kReactions};

/// Name of a table's file.
const char* FileNameOf(TableName table);

/// What is wrong in the tables of a folder: one line each, FILE:LINE:COLUMN: what is wrong and what
/// was expected. Keeps the first lines of each table and counts the rest.
class TableFaults {
public:
    /// Most lines that are told of one folder.
    static constexpr std::size_t kMostLines = 50;

    /// A place of line 0 is left out: something that is not there.
    void Add(TableName table, TablePlace place, const std::string& text);
    void Add(TableName table, const std::string& text) { Add(table, {}, text); }

    /// Whether a table has so many faults that the rest of it need not be read.
    bool HasTooMany(TableName table) const;

    bool Any() const { return count_ > 0; }
    std::size_t Count() const { return count_; }

    /// In the order of the tables, those of one table as they were added; no more than kMostLines.
    std::vector<std::string> Lines() const;

private:
    struct OfTable {
        std::vector<std::string> lines;
        std::size_t count = 0;
    };

    OfTable ofTables_[kAllTables.size()];
    std::size_t count_ = 0;
};

/// A place in a table as faults begin: FILE:LINE:COLUMN, or FILE without a line.
std::string TextOf(TableName table, TablePlace place);

/// Text of a table, UTF-8, in quotation marks and as one line for a message.
std::string Quoted(const std::string& text);
