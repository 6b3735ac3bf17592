#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "input/file_rules.h"
#include "input/input_line.h"
#include "input/input_text.h"
#include "input/keywords.h"

/// What a person who wrote a line can have meant by it.
enum class LineKind {
    kBlank,             ///< nothing, or the commas of an empty row
    kKeyword,           ///< a keyword as the readers know it
    kSlippedKeyword,    ///< meant as a keyword, and not recognised
    kSheet,             ///< a line of the calculation sheet
    kStoryLine,         ///< begins with a digit 1 to 9 and has a comma
    kBareNumber,        ///< begins with a digit 1 to 9 and has no comma
    kSlippedStoryLine,  ///< meant as a story line, and not taken for one
    kSlippedFin,        ///< meant as the line that ends the data, which the file lacks
    kRemark,            ///< anything else
};

struct LineMeaning {
    LineKind kind = LineKind::kRemark;
    std::optional<Keyword> keyword;  ///< of kKeyword and kSlippedKeyword
    std::optional<FileRule> slip;    ///< what is wrong with the line as a whole
    std::int32_t story = 0;          ///< the number that the line begins with, or was meant to
};

/// The meaning of one read, for itself: whether a story line belongs to a block depends on the
/// lines before it.
LineMeaning MeaningOf(const InputLine& line, const InputText& text);

/// Which line of a file without FIN was meant to be that line: the last one that is FIN but for
/// capitals, blanks, quotes, or END.
std::optional<std::size_t> FindMeantFin(const InputLines& read, const InputText& text);

/// The finding that the meaning's slip makes of the line.
LintFinding FindingOfSlip(const LineMeaning& meaning, const InputLine& line, const InputText& text);

/// The keyword that is exactly or nearly `word`: but for capitals, within two letters of it, or one
/// of the usual slips.
std::optional<Keyword> FindMeantKeyword(std::string_view word);

/// A line's text in UTF-8, half-width, without quotes and the commas between them, values separated
/// by commas alone.
std::string Repaired(std::string_view line, const InputText& text);

/// The line with a comma at its end.
std::string WithFinalComma(const std::string& line);

/// What is wrong with a value as such: full-width characters or quotes.
std::optional<LintFinding> FindSlipOfValue(const InputText& text, const InputLine& line,
                                           const InputField& field);

/// Where to point to: the field, or the comma that ends it when it is empty.
InputPlace PlaceToMark(const InputField& field);
