#pragma once

#include <map>
#include <string>
#include <vector>

#include "tables/import_tables.h"
#include "tests/support/test_folder.h"

/// Tables of a building of one story, checked by hand, to be changed by a test.
///
/// Four columns 1 to 4, 4 m high, at the corners of 6 m along X by 5 m along Y; Z is vertical.
/// Nodes 1 to 4 are their feet, 5 to 8 their heads; beams 11 to 14 join the heads and have no
/// forces. m, mm, kN; global, onMember. Case 1, dead load: each column carries 100 kN, its head
/// goes down by 0.5 mm. Case 2, earthquake X: each carries 10 kN, the heads move by 8 mm. Case 3,
/// the same along Y: 10 kN, 12 mm.
class OneStoryTables {
public:
    OneStoryTables();

    /// Rows of a table, the heading first; to be changed freely. A table that is taken out has no
    /// file.
    std::vector<std::string>& Rows(const std::string& table) { return tables_[table]; }
    void Remove(const std::string& table) { tables_.erase(table); }

    /// Puts `value` in the row of a key of model.csv.
    void State(const std::string& key, const std::string& value);

    /// Row `line` of a table, from 1 as an editor counts; `text` in its place.
    void SetLine(const std::string& table, std::size_t line, const std::string& text) {
        tables_[table].at(line - 1) = text;
    }

    /// Writes the tables and imports them.
    TablesImport Import(const std::optional<InputRoles>& input = std::nullopt) const;

    /// The same, with cases 1, 2 and 3 named by an input file.
    TablesImport ImportForInput() const;

    std::string Folder() const { return folder_.Path("tables"); }

private:
    TestFolder folder_;
    std::map<std::string, std::vector<std::string>> tables_;
};
