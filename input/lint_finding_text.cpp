#include "input/lint_finding_text.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/one_line.h"

namespace {

std::string Number(std::size_t value) {
    return std::to_string(value);
}

// Fills {name} with the finding's parameters; a name that it has none for stays.
std::string FillIn(std::string_view text, const LintFinding& finding, Language language) {
    std::string filled;
    while (true) {
        const std::size_t open = text.find('{');
        filled += text.substr(0, open);
        if (open == std::string_view::npos) return filled;
        const std::size_t close = text.find('}', open);
        const std::string_view name = text.substr(open + 1, close - open - 1);
        for (const LintParameter& parameter : finding.parameters)
            if (parameter.name == name)
                filled += language == Language::kJapanese ? parameter.ja : parameter.en;
        text.remove_prefix(close + 1);
    }
}

std::string FurtherPlaces(const LintFinding& finding, const InputText& text, Language language) {
    if (finding.furtherCount == 0) return {};
    std::string places;
    for (const InputPlace& place : finding.furtherPlaces)
        places += (places.empty() ? "" : ", ") + Number(place.line) + ':' +
                  Number(text.Column(place.line, place.offset));
    const std::size_t more = finding.furtherCount - finding.furtherPlaces.size();
    if (more > 0) places += ", ... (+" + Number(more) + ")";
    return language == Language::kJapanese ? " (ほか " + places + ")" : " (also at " + places + ")";
}

}  // namespace

std::string_view NameOf(LintKind kind) {
    switch (kind) {
        case LintKind::kError:
            return "error";
        case LintKind::kWarning:
            return "warning";
        case LintKind::kNote:
            break;
    }
    return "note";
}

std::string MessageOf(const LintFinding& finding, const InputText& text, Language language) {
    const std::string_view words =
        language == Language::kJapanese ? finding.rule->ja : finding.rule->en;
    return FillIn(words, finding, language) + FurtherPlaces(finding, text, language);
}

std::string WriteInstead(const LintFinding& finding, Language language) {
    if (!finding.write.empty()) return finding.write;
    const std::string_view advice =
        language == Language::kJapanese ? finding.rule->adviceJa : finding.rule->adviceEn;
    return FillIn(advice, finding, language);
}

std::string LineOf(const LintFinding& finding, const InputText& text, const std::string& path,
                   Language language) {
    std::string line = path + ':';
    if (finding.place.line != 0)
        line += Number(finding.place.line) + ':' +
                Number(text.Column(finding.place.line, finding.place.offset)) + ':';
    line += ' ' + std::string(NameOf(finding.rule->kind)) + ' ' + std::string(finding.rule->id) +
            ": " + MessageOf(finding, text, language);
    return Shown(std::move(line));
}

std::string Shown(std::string utf8) {
    std::ranges::replace(utf8, '\t', ' ');
    return OneLine(utf8);
}
