#pragma once

#include <ostream>
#include <string>
#include <vector>

/// Rows of text in columns as wide as their widest cell, for a terminal. Cells hold ASCII.
class TextTable {
public:
    explicit TextTable(std::vector<std::string> headings) { rows_.push_back(std::move(headings)); }

    void Add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }

    /// Prints every row with `indent` blanks before it. Verdicts are coloured where `useColor` says
    /// so: PASS and OK green, FAIL and NG red, undetermined yellow.
    void Print(std::ostream& out, int indent, bool useColor) const;

private:
    std::vector<std::vector<std::string>> rows_;
};
