#include "sheet/sheet_names.h"

#include <algorithm>
#include <map>

#include "platform/utf8_character.h"
#include "report/number_text.h"
#include "sheet/texts.h"

namespace {

constexpr std::size_t kLongestName = 12;  // characters; a longer one would not fit a column

std::string CutName(std::string_view name) {
    std::string cut;
    for (std::size_t count = 0; !name.empty(); ++count) {
        if (count == kLongestName) return cut + "…";
        const std::size_t length = FirstUtf8Character(name).size;
        cut += name.substr(0, length);
        name.remove_prefix(length);
    }
    return cut;
}

std::string NameOf(const std::map<std::int32_t, std::string>& names, std::int32_t number) {
    const auto found = names.find(number);
    return found == names.end() ? std::string() : CutName(found->second);
}

}  // namespace

std::string SheetNames::StoryInTable(int story) const {
    const std::string name = NameOf(content_.sheetLines.storyNames, story);
    return name.empty() ? IdentifierText(story) : name;
}

FilledWords SheetNames::Story(int story) const {
    const std::string name = NameOf(content_.sheetLines.storyNames, story);
    if (!name.empty()) return {name, name};
    return Filled(Text("story n"), {{"n", IdentifierText(story)}});
}

std::string SheetNames::Floor(std::size_t level) const {
    const auto number = static_cast<std::int32_t>(level + 1);
    const std::string name = NameOf(content_.sheetLines.floorNames, number);
    return name.empty() ? IdentifierText(number) + "FL" : name;
}

std::string SheetNames::Direction(std::size_t axis) const {
    return std::string(1, axis == kX ? 'X' : content_.findings.SecondDirection());
}

std::string SheetNames::Coordinate(std::size_t axis) const {
    if (axis == kX) return "x";
    if (!content_.findings.axisKnown) return "v";
    return content_.findings.zIsVertical ? "y" : "z";
}

FilledWords SheetNames::LoadCase(std::int32_t number) const {
    const LoadCaseFindings& cases = content_.findings.loadCases;
    std::string text = IdentifierText(number);
    const auto name = content_.sheetLines.caseNames.find(number);
    if (name != content_.sheetLines.caseNames.end()) text += " (" + CutName(name->second) + ")";
    const bool isCombination =
        std::ranges::find(cases.combinations, number) != cases.combinations.end() &&
        std::ranges::find(cases.primary, number) == cases.primary.end();
    if (!isCombination) return {text, text};
    return Filled(Text("combination of n"), {{"n", text}});
}
