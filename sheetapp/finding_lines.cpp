#include "sheetapp/finding_lines.h"

#include <algorithm>

#include "input/lint_finding_text.h"

namespace {

// Enough to work on; the rest comes to light when these are mended.
constexpr std::size_t kMost = 50;

std::string KindText(bool isError, Language language) {
    if (language == Language::kJapanese) return isError ? "誤り" : "注意";
    return isError ? "error" : "warning";
}

std::string LineText(const LintFinding& finding, Language language) {
    const bool ja = language == Language::kJapanese;
    if (finding.place.line == 0) return "";
    const std::string line = std::to_string(finding.place.line);
    return ja ? line + " 行目 " : "Line " + line + ", ";
}

std::string MoreText(std::size_t count, Language language) {
    const std::string more = std::to_string(count);
    return language == Language::kJapanese ? "ほか " + more + " 件\n" : "And " + more + " more.\n";
}

std::string Paragraph(const std::string& text, const std::string& advice) {
    return text + "\n" + (advice.empty() ? "" : "    → " + advice + "\n");
}

// The texts of both the input check and the remarks, up to a length that can be read.
class Paragraphs {
public:
    explicit Paragraphs(Language language) : language_(language) {}

    void Add(const std::string& text, const std::string& advice) {
        if (++count_ <= kMost) text_ += Paragraph(text, advice);
    }
    std::string Text() const {
        return count_ > kMost ? text_ + MoreText(count_ - kMost, language_) : text_;
    }

private:
    Language language_;
    std::size_t count_ = 0;
    std::string text_;
};

}  // namespace

bool HasErrors(const InputCheck& check) {
    return std::ranges::any_of(check.findings, [](const LintFinding& finding) {
        return finding.rule->kind == LintKind::kError;
    });
}

std::string LinesOfInputCheck(const InputCheck& check, Language language) {
    Paragraphs paragraphs(language);
    for (const LintKind kind : {LintKind::kError, LintKind::kWarning})
        for (const LintFinding& finding : check.findings) {
            if (finding.rule->kind != kind) continue;
            paragraphs.Add(
                LineText(finding, language) + KindText(kind == LintKind::kError, language) + " " +
                    std::string(finding.rule->id) + ": " + MessageOf(finding, check.text, language),
                WriteInstead(finding, language));
        }
    return paragraphs.Text();
}

std::string LinesOfRemarks(const Findings& findings, Language language) {
    const bool ja = language == Language::kJapanese;
    Paragraphs paragraphs(language);
    for (const Remark& remark : findings.remarks) {
        if (remark.kind == RemarkKind::kNote || remark.id == "R31") continue;
        paragraphs.Add(KindText(remark.kind == RemarkKind::kError, language) + " " + remark.id +
                           ": " + (ja ? remark.ja : remark.en),
                       ja ? remark.doJa : remark.doEn);
    }
    return paragraphs.Text();
}
