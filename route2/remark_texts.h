#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A text in both languages.
struct BothLanguages {
    std::string en;
    std::string ja;
};

/// The texts of one remark: what was found and what to do about it. Words in braces stand for what
/// the rule fills in; {items} for the list of places.
struct RemarkTexts {
    std::string_view key;  ///< the remark's id, and a letter where one id has two texts
    std::string_view ja;
    std::string_view en;
    std::string_view doJa;
    std::string_view doEn;
};

/// Throws std::out_of_range for a key that there is not.
const RemarkTexts& RemarkTextsOf(std::string_view key);

/// A value for a word in braces, the same in both languages or one for each.
struct RemarkValue {
    RemarkValue(std::string_view wordInBraces, const std::string& same)
        : word(wordInBraces), text{same, same} {}
    RemarkValue(std::string_view wordInBraces, BothLanguages both)
        : word(wordInBraces), text(std::move(both)) {}

    std::string_view word;
    BothLanguages text;
};

/// `en` and `ja` with every {word} replaced by its value.
BothLanguages FillIn(std::string_view en, std::string_view ja,
                     const std::vector<RemarkValue>& values);

/// The first twelve of a list, then how many more there are.
BothLanguages Listed(const std::vector<BothLanguages>& items);

/// `value` with a fixed number of decimals, halves away from zero, no "-0".
std::string Fixed(double value, int decimals);

/// A share of 1 in percent with one decimal. Beyond ten times the whole, where the number would say
/// nothing but that the whole is nearly nothing, "more than 999%".
BothLanguages PercentOf(double share);

/// `value` with as many digits as it takes to read it back.
std::string Shortest(double value);
