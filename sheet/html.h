#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

// Text becomes HTML here and nowhere else.

/// Longest text from outside that is shown, characters; the rest is cut.
inline constexpr std::size_t kLongestText = 400;

/// Any text as content of an element or value of an attribute. What HTML would take for markup is
/// escaped; control characters, marks that turn the direction of writing, and bytes that are no
/// UTF-8 become U+FFFD; what is longer than `mostCharacters` ends with "…".
std::string HtmlText(std::string_view text, std::size_t mostCharacters = kLongestText);

/// The same, added to HTML.
void AppendHtmlText(std::string& html, std::string_view text,
                    std::size_t mostCharacters = kLongestText);

/// A text of the sheet's own: the same, and `_x` or `_{xyz}` is set lower, `^{xyz}` higher.
std::string HtmlOfOwnText(std::string_view text);

/// The same, added to HTML.
void AppendHtmlOfOwnText(std::string& html, std::string_view text);

/// The same for text of a drawing.
std::string HtmlOfDrawnText(std::string_view text);

/// Borrows both texts.
struct HtmlAttribute {
    std::string_view name;
    std::string_view value;  ///< any text; it is escaped
};

/// "<tag name="value">".
std::string OpenTag(std::string_view tag, std::initializer_list<HtmlAttribute> attributes = {});

/// The same, added to HTML; and "</tag>".
void AppendOpenTag(std::string& html, std::string_view tag,
                   std::initializer_list<HtmlAttribute> attributes = {});
void AppendCloseTag(std::string& html, std::string_view tag);

/// ` name="value"`, added to an opening tag; the value is HTML already.
void AppendAttribute(std::string& html, std::string_view name, std::string_view value);

/// An element around `content`, which is HTML.
std::string Element(std::string_view tag, std::initializer_list<HtmlAttribute> attributes,
                    std::string_view content);
