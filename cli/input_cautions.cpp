#include "cli/input_cautions.h"

#include <cstddef>

#include "cli/messages.h"
#include "input/lint_finding_text.h"

namespace {

constexpr std::size_t kMostCautions = 20;

}  // namespace

void CautionAboutInput(const InputCheck& check, const std::string& inputPath, bool errorsOnly) {
    if (!check.isRead) return;
    const LintKind least = errorsOnly ? LintKind::kError : LintKind::kWarning;
    std::size_t cautions = 0;
    for (const LintFinding& finding : check.findings) {
        if (finding.rule->kind < least) continue;
        if (++cautions <= kMostCautions)
            TellCaution(LineOf(finding, check.text, inputPath, Language::kEnglish));
    }
    if (cautions > kMostCautions)
        TellCaution(inputPath + ": and " + std::to_string(cautions - kMostCautions) +
                    " more; quarnel-cli lint shows them");
}
