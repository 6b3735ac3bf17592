#include "tables/table_faults.h"

#include "platform/one_line.h"

const char* FileNameOf(TableName table) {
    switch (table) {
        case TableName::kModel:
            return "model.csv";
        case TableName::kNodes:
            return "nodes.csv";
        case TableName::kSupports:
            return "supports.csv";
        case TableName::kMembers:
            return "members.csv";
        case TableName::kCases:
            return "cases.csv";
        case TableName::kDisplacements:
            return "displacements.csv";
        case TableName::kForces:
            return "forces.csv";
        case TableName::kAxes:
            return "axes.csv";
        case TableName::kReactions:
            return "reactions.csv";
    }
    return "";
}

void TableFaults::Add(TableName table, TablePlace place, const std::string& text) {
    ++count_;
    OfTable& ofTable = ofTables_[static_cast<std::size_t>(table)];
    ++ofTable.count;
    if (ofTable.lines.size() < kMostLines)
        ofTable.lines.push_back(TextOf(table, place) + ": " + text);
}

bool TableFaults::HasTooMany(TableName table) const {
    constexpr std::size_t kMany = 100'000;
    return ofTables_[static_cast<std::size_t>(table)].count > kMany;
}

std::vector<std::string> TableFaults::Lines() const {
    std::vector<std::string> lines;
    for (const OfTable& ofTable : ofTables_)
        for (const std::string& line : ofTable.lines)
            if (lines.size() < kMostLines) lines.push_back(line);
    return lines;
}

std::string TextOf(TableName table, TablePlace place) {
    std::string text = FileNameOf(table);
    if (place.line == 0) return text;
    text.append(1, ':').append(std::to_string(place.line));
    return text.append(1, ':').append(std::to_string(place.column));
}

std::string Quoted(const std::string& text) {
    constexpr std::size_t kLongest = 60;
    return std::string(1, '"').append(OneLine(text, kLongest)).append(1, '"');
}
