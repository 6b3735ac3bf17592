#include "tables/case_table.h"

namespace {

constexpr std::size_t kMostCases = 10'000;

// A table without the column `kind` has primary cases only.
bool IsPrimary(TableReader& table, const TableReader::Column& kind) {
    if (!kind) return true;
    const std::string_view text = table.Bytes(*kind);
    if (text != "primary" && text != "combination")
        table.Fault(*kind, Quoted(table.TextOrNothing(*kind)) +
                               " is no kind of load case; primary or combination is expected");
    return text != "combination";
}

}  // namespace

TableCases TableCases::Read(const std::string& folder, TableFaults& faults) {
    TableCases cases;
    TableReader table(folder, TableName::kCases, faults);
    const auto [number] = table.Require({"case"}, "case[,name][,kind]");
    const TableReader::Column name = table.Find("name");
    const TableReader::Column kind = table.Find("kind");
    while (table.NextRow()) {
        TableCase row;
        const auto found = table.WholeNumber(number);
        row.isPrimary = IsPrimary(table, kind);
        if (name) row.name = table.TextOrNothing(*name);
        if (!found) continue;
        row.number = *found;
        if (cases.rows_.size() == kMostCases) {
            table.GiveUp(number, "more than " + std::to_string(kMostCases) + " load cases");
            break;
        }
        if (cases.places_.emplace(row.number, cases.rows_.size()).second)
            cases.rows_.push_back(row);
        else
            table.Fault(number, "case " + std::to_string(row.number) +
                                    " stands twice; one row is expected");
    }
    cases.isRead_ = table.IsReadToEnd();
    return cases;
}

std::optional<std::size_t> TableCases::Find(std::int32_t number) const {
    const auto found = places_.find(number);
    if (found == places_.end()) return std::nullopt;
    return found->second;
}

std::optional<std::size_t> TableCases::PlaceIn(TableReader& table, std::size_t column) const {
    const auto number = table.WholeNumber(column);
    if (!number) return std::nullopt;
    const auto place = Find(*number);
    if (!place && isRead_)
        table.Fault(column,
                    "unknown case " + std::to_string(*number) + "; one of cases.csv is expected");
    return place;
}
