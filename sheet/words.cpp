#include "sheet/words.h"

#include "sheet/concat.h"
#include "sheet/html.h"

namespace {

void Replace(std::string& text, std::string_view name, std::string_view value) {
    const std::string placeholder = Concat({"{", name, "}"});
    for (std::size_t place = text.find(placeholder); place != std::string::npos;
         place = text.find(placeholder, place + value.size()))
        text.replace(place, placeholder.size(), value);
}

// The sheet's own text in one of its languages.
void AppendIn(std::string& html, std::string_view language, std::string_view cssClass,
              std::string_view text) {
    AppendOpenTag(html, "span", {{"class", cssClass}, {"lang", language}});
    AppendHtmlOfOwnText(html, text);
    AppendCloseTag(html, "span");
}

std::string OutsideTextIn(std::string_view language, std::string_view text) {
    return Element("span", {{"class", language}, {"lang", language}}, HtmlText(text));
}

}  // namespace

FilledWords Filled(Words words, std::initializer_list<WordValue> values) {
    FilledWords filled{std::string(words.ja), std::string(words.en)};
    for (const WordValue& value : values) {
        Replace(filled.ja, value.name, value.ja);
        Replace(filled.en, value.name, value.en);
    }
    return filled;
}

FilledWords Joined(const std::vector<FilledWords>& words) {
    FilledWords joined;
    for (const FilledWords& one : words) {
        if (!joined.ja.empty()) joined.ja += "、";
        if (!joined.en.empty()) joined.en += ", ";
        joined.ja += one.ja;
        joined.en += one.en;
    }
    return joined;
}

void AppendInBoth(std::string& html, Words words) {
    if (words.ja == words.en) return AppendHtmlOfOwnText(html, words.ja);
    AppendIn(html, "ja", "ja", words.ja);
    AppendIn(html, "en", "en", words.en);
}

std::string InBoth(Words words) {
    std::string html;
    AppendInBoth(html, words);
    return html;
}

std::string OutsideTextInBoth(Words words) {
    if (words.ja == words.en) return HtmlText(words.ja);
    return OutsideTextIn("ja", words.ja) + OutsideTextIn("en", words.en);
}

std::string InOne(Words words) {
    if (words.ja == words.en) return HtmlOfOwnText(words.ja);
    std::string html;
    AppendIn(html, "ja", "ja", words.ja);
    AppendIn(html, "en", "en-alone", words.en);
    return html;
}
