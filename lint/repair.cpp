#include "lint/repair.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "input/input_check.h"
#include "input/line_text.h"
#include "platform/utf8_character.h"

namespace {

constexpr int kMostRounds = 64;  // a line may have several mistakes, one behind the other
constexpr std::size_t kMostBytes = 1000000;

bool IsOneOf(std::string_view id, std::initializer_list<std::string_view> ids) {
    return std::ranges::find(ids, id) != ids.end();
}

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        lines.emplace_back(line);
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return lines;
}

// A story line as it is recognised: without blanks, plus and zeros in front, no letters behind.
std::string WithBareStoryNumber(const std::string& line) {
    const std::size_t first = line.find_first_of("123456789");
    if (first == std::string::npos) return line;
    const std::size_t end = line.find_first_not_of("0123456789", first);
    const std::size_t comma = line.find(',', first);
    if (end == std::string::npos || comma == std::string::npos) return line;
    return line.substr(first, end - first) + line.substr(comma);
}

// Lines that end a block, or repeat what stands before them.
bool IsTakenOut(const LintFinding& finding) {
    return IsOneOf(finding.rule->id, {"S04", "A09", "L01"});
}

// The line as it should be; nothing where there is no telling.
std::optional<std::string> RepairedLine(const std::string& line, const LintFinding& finding) {
    const std::string_view id = finding.rule->id;
    if (id == "S10") return WithBareStoryNumber(line);
    if (id == "F04") return "# " + line + ',';
    if (finding.write.empty()) return std::nullopt;
    if (IsOneOf(id, {"A01", "A02"})) {
        std::string repaired = line;
        return repaired.replace(finding.place.offset, finding.place.length, finding.write);
    }
    const bool isWholeLine = IsOneOf(id, {"F09", "F10", "F11", "F12", "K01", "K02", "K03", "V01",
                                          "V02", "V04", "V05", "V10", "S01", "S02", "A03", "D01"});
    return isWholeLine ? std::optional(finding.write) : std::nullopt;
}

// A line that ends a block and holds something of its own stays, elsewhere.
bool IsKept(const std::string& line) {
    return !IsBlankRow(line) && line.find(',') != std::string::npos;
}

// The lines of a text while they are put right.
struct RepairDraft {
    struct Line {
        std::string text;
        bool isTouched = false;  // once in a round: the next finding is looked at afresh
        bool isTakenOut = false;
    };
    std::vector<Line> lines;
    std::string moved;  // to the top
    bool hasChanged = false;
};

void Apply(const LintFinding& finding, RepairDraft& draft) {
    const std::size_t number = finding.place.line;
    if (number == 0 || number > draft.lines.size()) return;
    RepairDraft::Line& line = draft.lines[number - 1];
    if (line.isTouched) return;
    if (IsTakenOut(finding)) {
        if (IsKept(line.text)) draft.moved += line.text + '\n';
        line.isTakenOut = true;
    } else {
        const auto repaired = RepairedLine(line.text, finding);
        if (!repaired || *repaired == line.text) return;
        line.text = *repaired;
    }
    line.isTouched = true;
    draft.hasChanged = true;
}

// Nothing when nothing is left to repair.
std::optional<std::string> RepairOnce(const InputText& text) {
    RepairDraft draft;
    for (const std::string& line : LinesOf(text.Text()))
        draft.lines.push_back({line});
    for (const LintFinding& finding : CheckInputText(text).findings)
        Apply(finding, draft);
    if (!draft.hasChanged) return std::nullopt;
    std::string repaired = draft.moved;
    for (const RepairDraft::Line& line : draft.lines)
        if (!line.isTakenOut) repaired += line.text + '\n';
    return repaired;
}

// UTF-8 without a mark at the start, line feeds, FIN at the end and nowhere else.
std::string WithPlainEnds(const InputText& input) {
    std::string text = input.Display(input.Text());
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    if (text.find('\n') == std::string::npos) std::ranges::replace(text, '\r', '\n');
    std::string plain;
    for (const std::string& line : LinesOf(text)) {
        const std::string word = line.substr(0, line.find_last_not_of(", \t\r") + 1);
        if (word != "FIN") plain += line + '\n';
    }
    return plain + "FIN\n";
}

}  // namespace

InputText Repair(const InputText& text) {
    if (text.Text().size() > kMostBytes) return text;
    InputText repaired(WithPlainEnds(text));
    for (int round = 0; round < kMostRounds; ++round) {
        const auto next = RepairOnce(repaired);
        if (!next) break;
        repaired = InputText(*next);
    }
    return repaired;
}
