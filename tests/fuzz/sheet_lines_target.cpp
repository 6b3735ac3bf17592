// The lines of an input file that only the calculation sheet reads: what is taken of whatever bytes
// is valid UTF-8, finite, and no markup once it stands on the page.

#include <cmath>
#include <string>

#include "input/sheet_lines.h"
#include "platform/utf8_character.h"
#include "sheet/html.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"

namespace {

void CheckText(const std::string& text) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const Utf8Character character = FirstUtf8Character(rest);
        Check(character.code != kNoUtf8Character, "the text is UTF-8");
        rest.remove_prefix(character.size);
    }
    const std::string html = HtmlText(text);
    Check(html.find_first_of("<>\"") == std::string::npos, "no markup comes from outside");
}

template <typename Names>
void CheckNames(const Names& names) {
    for (const auto& [number, name] : names)
        CheckText(name);
}

void CheckGrid(const std::vector<GridLine>& grid) {
    for (const GridLine& line : grid) {
        CheckText(line.name);
        Check(std::isfinite(line.at), "a line of the grid lies somewhere");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const InputText text(std::string(reinterpret_cast<const char*>(data), size));
    const SheetLines lines = SheetLinesOf(text);
    CheckText(lines.project);
    CheckText(lines.designer);
    CheckNames(lines.storyNames);
    CheckNames(lines.floorNames);
    CheckNames(lines.caseNames);
    CheckGrid(lines.gridX);
    CheckGrid(lines.gridSecond);
    for (const std::string& note : lines.notes)
        CheckText(note);
    if (lines.groundLevel) Check(std::isfinite(*lines.groundLevel), "the ground lies somewhere");
    return 0;
}
