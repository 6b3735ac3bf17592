#include "cli/text_table.h"

#include <algorithm>

namespace {

constexpr std::size_t kGap = 2;

const char* ColorOf(const std::string& cell) {
    if (cell == "PASS" || cell == "OK") return "\x1b[32m";
    if (cell == "FAIL" || cell == "NG") return "\x1b[31m";
    if (cell.starts_with("undetermined")) return "\x1b[33m";
    return nullptr;
}

}  // namespace

void TextTable::Print(std::ostream& out, int indent, bool useColor) const {
    std::vector<std::size_t> widths(rows_.front().size(), 0);
    for (const auto& row : rows_)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    for (const auto& row : rows_) {
        out << std::string(static_cast<std::size_t>(indent), ' ');
        for (std::size_t i = 0; i < row.size(); ++i) {
            const char* const color = useColor ? ColorOf(row[i]) : nullptr;
            if (color != nullptr) out << color;
            out << row[i];
            if (color != nullptr) out << "\x1b[0m";
            if (i + 1 < row.size()) out << std::string(widths[i] - row[i].size() + kGap, ' ');
        }
        out << "\n";
    }
}
