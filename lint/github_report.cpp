#include "lint/github_report.h"

#include <string_view>

#include "input/lint_finding_text.h"

namespace {

std::string_view CommandOf(LintKind kind) {
    switch (kind) {
        case LintKind::kError:
            return "error";
        case LintKind::kWarning:
            return "warning";
        case LintKind::kNote:
            break;
    }
    return "notice";
}

// Characters that end a command, or a property of one, as the workflow writes them.
std::string Escaped(std::string_view text, std::string_view special) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : text) {
        if (special.find(c) == std::string_view::npos) {
            escaped += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        escaped += '%';
        escaped += kHexDigits[byte / 16];
        escaped += kHexDigits[byte % 16];
    }
    return escaped;
}

std::string Property(std::string_view text) {
    return Escaped(text, "%\r\n:,");
}

}  // namespace

std::string GithubReport(const LintReport& report, Language language) {
    std::string lines;
    for (const LintFinding& finding : report.findings) {
        const InputPlace& place = finding.place;
        std::string line = "::" + std::string(CommandOf(finding.rule->kind)) +
                           " file=" + Property(report.inputPath);
        if (place.line != 0)
            line += ",line=" + std::to_string(place.line) +
                    ",col=" + std::to_string(report.check.text.Column(place.line, place.offset));
        std::string message =
            std::string(finding.rule->id) + ": " + MessageOf(finding, report.check.text, language);
        const std::string write = WriteInstead(finding, language);
        if (!write.empty()) message += "\n" + write;
        line += "::" + Escaped(message, "%\r\n");
        lines += Shown(line) + '\n';
    }
    return lines;
}
