#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sheet/words.h"

/// The heading of a section, with its number.
std::string Heading(std::string_view number, Words words);

/// A heading within a section.
std::string SubHeading(Words words);

/// A value with its name before it.
struct LabelledValue {
    Words label;
    std::string value;  ///< any text
};

/// Values beside each other.
std::string LabelledValues(const std::vector<LabelledValue>& values);

/// A line of formulas, with the marks of HtmlOfOwnText, and what their symbols mean.
std::string FormulaLine(std::string_view formulas, Words meaning);

/// A paragraph of small print.
std::string SmallPrint(Words words);

/// A whole page that looks as the sheet does, for what is no sheet. `body` is HTML.
std::string PlainPage(std::string_view title, std::string_view body);
