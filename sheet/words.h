#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// The same words in both languages of the sheet, UTF-8.
struct Words {
    std::string_view ja;
    std::string_view en;
};

/// Words that hold their own text.
struct FilledWords {
    std::string ja;
    std::string en;

    operator Words() const { return {ja, en}; }
};

/// The value of {name} in both languages.
struct WordValue {
    std::string_view name;
    std::string_view ja;
    std::string_view en;

    WordValue(std::string_view n, std::string_view both) : name(n), ja(both), en(both) {}
    WordValue(std::string_view n, Words words) : name(n), ja(words.ja), en(words.en) {}
};

/// `words` with every {name} replaced by its value.
FilledWords Filled(Words words, std::initializer_list<WordValue> values);

/// All of them, with a comma of each language between.
FilledWords Joined(const std::vector<FilledWords>& words);

// As HTML. The reader of the page chooses whether both languages are shown or one of them.

/// Japanese, then English, of the sheet's own texts; the marks of HtmlOfOwnText are understood.
std::string InBoth(Words words);

/// The same, added to HTML.
void AppendInBoth(std::string& html, Words words);

/// The same of texts from outside.
std::string OutsideTextInBoth(Words words);

/// Japanese where Japanese is shown, else English: for what has no room for both.
std::string InOne(Words words);
