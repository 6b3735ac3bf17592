#include "input/sheet_lines.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "input/input_line.h"

namespace {

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The fields after the keyword; commas at the end make none.
std::vector<std::string_view> FieldsOf(std::string_view rest) {
    std::vector<std::string_view> fields;
    while (!rest.empty()) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        fields.push_back(Trimmed(rest.substr(0, comma)));
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return fields;
}

// A text may hold commas; those at its end are not part of it.
std::string_view TextOf(std::string_view rest) {
    const std::size_t last = rest.find_last_not_of(", \t");
    return Trimmed(rest.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

template <typename Number>
std::optional<Number> NumberOf(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<double> LengthOf(std::string_view text) {
    const auto length = NumberOf<double>(text);
    return length && std::isfinite(*length) ? length : std::nullopt;
}

class Reader {
public:
    Reader(SheetLines& lines, const InputText& text) : lines_(lines), text_(text) {}

    void Read(std::string_view line) {
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos) return;
        const std::string_view keyword = line.substr(0, comma);
        const std::string_view rest = line.substr(comma + 1);
        if (keyword == "SheetProject") lines_.project = Text(TextOf(rest));
        if (keyword == "SheetDesigner") lines_.designer = Text(TextOf(rest));
        if (keyword == "SheetStoryName") ReadNames(rest, lines_.storyNames);
        if (keyword == "SheetFloorName") ReadNames(rest, lines_.floorNames);
        if (keyword == "SheetCaseName") ReadNames(rest, lines_.caseNames);
        if (keyword == "SheetGridX") ReadGrid(rest, lines_.gridX);
        if (keyword == "SheetGridZ") ReadGrid(rest, lines_.gridSecond);
        if (keyword == "SheetNote" && !TextOf(rest).empty())
            lines_.notes.push_back(Text(TextOf(rest)));
        if (keyword == "SheetGround") ReadGround(rest);
    }

private:
    std::string Text(std::string_view bytes) const { return text_.Display(bytes); }

    void ReadNames(std::string_view rest, std::map<std::int32_t, std::string>& names) const {
        const auto fields = FieldsOf(rest);
        for (std::size_t i = 0; i + 1 < fields.size(); i += 2)
            if (const auto number = NumberOf<std::int32_t>(fields[i]); number)
                names[*number] = Text(fields[i + 1]);
    }

    void ReadGrid(std::string_view rest, std::vector<GridLine>& grid) const {
        const auto fields = FieldsOf(rest);
        for (std::size_t i = 0; i + 1 < fields.size(); i += 2)
            if (const auto at = LengthOf(fields[i + 1])) grid.push_back({Text(fields[i]), *at});
    }

    void ReadGround(std::string_view rest) const {
        const auto fields = FieldsOf(rest);
        if (fields.empty()) return;
        if (const auto level = LengthOf(fields.front())) lines_.groundLevel = level;
    }

    SheetLines& lines_;
    const InputText& text_;
};

}  // namespace

SheetLines SheetLinesOf(const InputText& text) {
    SheetLines lines;
    Reader reader(lines, text);
    for (const InputLine& line : ReadInputLines(text.Text()).lines) {
        if (line.IsRest()) continue;
        std::string_view read = line.text.substr(text.HiddenBytes(line.number));
        if (read.ends_with('\r')) read.remove_suffix(1);
        reader.Read(read);
    }
    return lines;
}

SheetLines ReadSheetLines(const std::string& path) {
    return SheetLinesOf(ReadInputText(path).text);
}
