#include "input/reported_member_rules.h"

#include <string>
#include <vector>

#include "input/block_rules.h"
#include "input/keywords.h"
#include "input/line_text.h"

namespace {

const InputLine* FindFirstLine(const InputView& view) {
    for (std::size_t i = 0; i < view.meanings.size(); ++i)
        if (view.meanings[i].kind == LineKind::kKeyword &&
            view.meanings[i].keyword == Keyword::kMemberDeformAngle)
            return &view.read.lines[i];
    return nullptr;
}

bool AddSlip(const InputView& view, const InputLine& line, const std::vector<InputField>& fields,
             LintFindingList& findings) {
    for (std::size_t k = 1; k < fields.size(); ++k) {
        const auto slip = FindSlipOfValue(view.text, line, fields[k]);
        if (!slip) continue;
        findings.Add(*slip);
        return true;
    }
    return false;
}

void CheckMember(const InputView& view, const InputField& field, LintFindingList& findings) {
    const WholeNumber number = ConvertWholeNumber(field.text);
    if (IsBlank(field.text)) {
        findings.Add(FindingOf(FileRule::kD02Empty, PlaceToMark(field)));
        return;
    }
    if (number.isClean && number.value >= 1) return;
    const FileRule rule = number.isClean ? FileRule::kD02NoMember : FileRule::kD02;
    findings.Add(FindingOf(rule, field.place)
                     .With("t", view.text.Display(Trimmed(field.text)))
                     .With("n", std::to_string(number.value)));
}

}  // namespace

void CheckReportedMembers(const InputView& view, LintFindingList& findings) {
    const InputLine* const line = FindFirstLine(view);
    if (line == nullptr) return;
    const std::vector<InputField> fields = FieldsOf(*line);
    if (AddSlip(view, *line, fields, findings)) return;
    for (std::size_t k = 1; k + 1 < fields.size(); ++k)
        CheckMember(view, fields[k], findings);
    const std::string_view last = Trimmed(fields.back().text);
    if (last.empty() || line->isContinued) return;
    findings.Add(
        FindingOf(fields.size() == 2 ? FileRule::kD01Only : FileRule::kD01, fields.back().place)
            .With("m", view.text.Display(last))
            .Write(WithFinalComma(view.text.Display(Trimmed(line->text)))));
}
