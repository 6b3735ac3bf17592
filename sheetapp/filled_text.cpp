#include "sheetapp/filled_text.h"

namespace {

// Later places first: what is filled in may have braces of its own.
void Fill(std::string& text, const std::string& place, const std::string& value) {
    const std::size_t at = text.find(place);
    if (at != std::string::npos) text.replace(at, place.size(), value);
}

}  // namespace

std::string FilledText(std::string text, const std::string& first, const std::string& second) {
    const bool secondIsLater = text.find("{2}") > text.find("{1}");
    if (secondIsLater) Fill(text, "{2}", second);
    Fill(text, "{1}", first);
    if (!secondIsLater) Fill(text, "{2}", second);
    return text;
}
