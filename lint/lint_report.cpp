#include "lint/lint_report.h"

#include <algorithm>

std::size_t CountOf(const LintReport& report, LintKind kind) {
    const auto isOfKind = [kind](const LintFinding& finding) { return finding.rule->kind == kind; };
    return static_cast<std::size_t>(std::ranges::count_if(report.findings, isOfKind));
}
