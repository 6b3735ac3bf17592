#include "sheet/html.h"

#include <algorithm>
#include <array>

#include "platform/utf8_character.h"

namespace {

bool IsBetween(char32_t character, char32_t lowest, char32_t highest) {
    return lowest <= character && character <= highest;
}

// Controls, marks that turn the direction of writing, and what is no character at all.
bool IsUnfit(char32_t character) {
    return character < 0x20 || IsBetween(character, 0x7F, 0x9F) ||
           IsBetween(character, 0x200B, 0x200F) || IsBetween(character, 0x2028, 0x202E) ||
           IsBetween(character, 0x2060, 0x206F) || character == 0xFEFF ||
           IsBetween(character, 0xFDD0, 0xFDEF) || (character & 0xFFFEU) == 0xFFFEU ||
           character == kNoUtf8Character;
}

std::string_view EscapeOf(char32_t character) {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        case '\t':
            return " ";
        default:
            return {};
    }
}

// Takes the first character of `text` away and gives it as HTML.
std::string_view TakeCharacter(std::string_view& text) {
    const Utf8Character character = FirstUtf8Character(text);
    const std::string_view bytes = text.substr(0, character.size);
    text.remove_prefix(character.size);
    if (const std::string_view escape = EscapeOf(character.code); !escape.empty()) return escape;
    return IsUnfit(character.code) ? kReplacementCharacter : bytes;
}

// By byte, what stands for itself in HTML.
constexpr std::array<bool, 256> kIsPlain = [] {
    std::array<bool, 256> isPlain{};
    for (std::size_t byte = ' '; byte <= '~'; ++byte)
        isPlain[byte] = true;
    for (const char byte : std::string_view("&<>\"'"))
        isPlain[static_cast<unsigned char>(byte)] = false;
    return isPlain;
}();

// The part behind a mark of HtmlOfOwnText: one character, or what stands in braces.
std::string_view TakePart(std::string_view& text) {
    if (text.starts_with('{')) {
        const std::string_view part = text.substr(1, text.find('}') - 1);
        text.remove_prefix(part.size() + 2);
        return part;
    }
    const std::string_view part = text.substr(0, FirstUtf8Character(text).size);
    text.remove_prefix(part.size());
    return part;
}

// How many characters at the start stand for themselves.
std::size_t CountPlain(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && kIsPlain[static_cast<unsigned char>(text[count])])
        ++count;
    return count;
}

// Adds what stands before the next part that is set lower or higher, and takes it away.
void AppendToNextPart(std::string& html, std::string_view& text) {
    std::size_t length = 0;
    while (length < text.size() && text[length] != '_' && text[length] != '^')
        ++length;
    AppendHtmlText(html, text.substr(0, length), std::string_view::npos);
    text.remove_prefix(length);
}

}  // namespace

void AppendHtmlText(std::string& html, std::string_view text, std::size_t mostCharacters) {
    std::size_t left = mostCharacters;
    while (!text.empty()) {
        const std::size_t plain = CountPlain(text.substr(0, left));
        html += text.substr(0, plain);
        text.remove_prefix(plain);
        left -= plain;
        if (text.empty()) return;
        if (left == 0) {
            html += "…";
            return;
        }
        html += TakeCharacter(text);
        --left;
    }
}

std::string HtmlText(std::string_view text, std::size_t mostCharacters) {
    std::string html;
    html.reserve(text.size());
    AppendHtmlText(html, text, mostCharacters);
    return html;
}

void AppendHtmlOfOwnText(std::string& html, std::string_view text) {
    while (!text.empty()) {
        AppendToNextPart(html, text);
        if (text.empty()) return;
        const std::string_view tag = text.front() == '_' ? "sub" : "sup";
        text.remove_prefix(1);
        AppendOpenTag(html, tag);
        AppendHtmlText(html, TakePart(text));
        AppendCloseTag(html, tag);
    }
}

std::string HtmlOfOwnText(std::string_view text) {
    std::string html;
    AppendHtmlOfOwnText(html, text);
    return html;
}

std::string HtmlOfDrawnText(std::string_view text) {
    std::string html;
    AppendToNextPart(html, text);
    if (text.empty()) return html;
    const bool isLower = text.front() == '_';
    text.remove_prefix(1);
    html += Element("tspan", {{"dy", isLower ? "0.3em" : "-0.4em"}, {"font-size", "70%"}},
                    HtmlText(TakePart(text)));
    if (text.empty()) return html;
    // A shift lasts to the end of the text; what follows takes it back.
    return html + Element("tspan", {{"dy", isLower ? "-0.21em" : "0.28em"}}, HtmlOfDrawnText(text));
}

void AppendOpenTag(std::string& html, std::string_view tag,
                   std::initializer_list<HtmlAttribute> attributes) {
    html += '<';
    html += tag;
    for (const HtmlAttribute& attribute : attributes) {
        html += ' ';
        html += attribute.name;
        html += "=\"";
        AppendHtmlText(html, attribute.value, std::string_view::npos);
        html += '"';
    }
    html += '>';
}

void AppendCloseTag(std::string& html, std::string_view tag) {
    html += "</";
    html += tag;
    html += '>';
}

void AppendAttribute(std::string& html, std::string_view name, std::string_view value) {
    html += ' ';
    html += name;
    html += "=\"";
    html += value;
    html += '"';
}

std::string OpenTag(std::string_view tag, std::initializer_list<HtmlAttribute> attributes) {
    std::string html;
    AppendOpenTag(html, tag, attributes);
    return html;
}

std::string Element(std::string_view tag, std::initializer_list<HtmlAttribute> attributes,
                    std::string_view content) {
    std::string html;
    AppendOpenTag(html, tag, attributes);
    html += content;
    AppendCloseTag(html, tag);
    return html;
}
