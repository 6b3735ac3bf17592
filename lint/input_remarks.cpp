#include "lint/input_remarks.h"

#include <string>

#include "input/lint_finding_text.h"

namespace {

std::string InEnglish(const LintFinding& finding, const InputText& text) {
    const std::size_t line = finding.place.line;
    const std::string place =
        line == 0 ? "Input file: " : "Input file, line " + std::to_string(line) + ": ";
    return place + MessageOf(finding, text, Language::kEnglish) + " (" +
           std::string(finding.rule->id) + ")";
}

std::string InJapanese(const LintFinding& finding, const InputText& text) {
    const std::size_t line = finding.place.line;
    const std::string place =
        line == 0 ? "入力ファイル: " : "入力ファイル " + std::to_string(line) + "行目: ";
    return place + MessageOf(finding, text, Language::kJapanese) + "(" +
           std::string(finding.rule->id) + ")";
}

}  // namespace

std::vector<Remark> RemarksOnInput(const InputCheck& check) {
    std::vector<Remark> remarks;
    if (!check.isRead) return remarks;
    for (const LintFinding& finding : check.findings) {
        if (finding.rule->kind == LintKind::kNote) continue;
        Remark remark;
        remark.id = "R31";
        remark.kind =
            finding.rule->kind == LintKind::kError ? RemarkKind::kError : RemarkKind::kWarning;
        remark.stories.assign(finding.stories.begin(), finding.stories.end());
        remark.members = finding.members;
        remark.en = InEnglish(finding, check.text);
        remark.ja = InJapanese(finding, check.text);
        remark.doEn = WriteInstead(finding, Language::kEnglish);
        remark.doJa = WriteInstead(finding, Language::kJapanese);
        remarks.push_back(std::move(remark));
    }
    return remarks;
}
