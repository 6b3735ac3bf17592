#include "sheet/words.h"

#include "sheet/html.h"

namespace {

void Replace(std::string& text, std::string_view name, std::string_view value) {
    std::string placeholder = "{";
    placeholder += name;
    placeholder += '}';
    for (std::size_t place = text.find(placeholder); place != std::string::npos;
         place = text.find(placeholder, place + value.size()))
        text.replace(place, placeholder.size(), value);
}

std::string InLanguage(std::string_view language, std::string_view html) {
    const std::string name(language);
    return Element("span", {{"class", name}, {"lang", name}}, html);
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

std::string InBoth(Words words) {
    if (words.ja == words.en) return HtmlOfOwnText(words.ja);
    return InLanguage("ja", HtmlOfOwnText(words.ja)) + InLanguage("en", HtmlOfOwnText(words.en));
}

std::string OutsideTextInBoth(Words words) {
    if (words.ja == words.en) return HtmlText(words.ja);
    return InLanguage("ja", HtmlText(words.ja)) + InLanguage("en", HtmlText(words.en));
}

std::string InOne(Words words) {
    if (words.ja == words.en) return HtmlOfOwnText(words.ja);
    return InLanguage("ja", HtmlOfOwnText(words.ja)) +
           Element("span", {{"class", "en-alone"}, {"lang", "en"}}, HtmlOfOwnText(words.en));
}
