#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"

// What is told about the text of fields and lines.

/// Without blanks (and tabs) at both ends.
std::string_view Trimmed(std::string_view text);

/// Nothing but blanks.
bool IsBlank(std::string_view text);

/// Nothing but blanks and commas: what a spreadsheet makes of an empty row.
bool IsBlankRow(std::string_view text);

/// Begins, after blanks, like a number.
bool BeginsLikeANumber(std::string_view text);

/// What a field is as a number, and whether all of it is that number: blanks at both ends do no
/// harm.
struct WholeNumber {
    std::int32_t value = 0;
    bool isClean = false;  ///< the text is this number and nothing else
};
WholeNumber ConvertWholeNumber(std::string_view field);

struct RealNumber {
    double value = 0.0;
    bool isClean = false;
};
RealNumber ConvertRealNumber(std::string_view field);

/// The shortest text that reads back to the same number, without an exponent.
std::string NumberText(double value);

/// The same, rounded to six places: what is left of a sum or difference of readable numbers.
std::string RoundedText(double value);

/// A text with every full-width character in its half-width form.
struct HalfWidthText {
    std::string text;            ///< UTF-8
    std::string firstFullWidth;  ///< the character as it is written; empty: there is none
};
HalfWidthText ToHalfWidth(std::string_view text, TextEncoding encoding);

/// Whether a text has any full-width character for which there is a half-width one.
bool HasFullWidth(std::string_view text, TextEncoding encoding);

/// A word without its quotes, and without the blanks around it.
std::string WithoutQuotes(std::string_view text);
