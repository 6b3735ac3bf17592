// Remarks on the run itself: warnings of its log, answers that a recording lacks, reports that are
// not whole, and what no run of this tool covers.

#include <map>

#include "route2/remark_cause.h"
#include "route2/remark_rules.h"

namespace {

RemarkKind KindOf(WarningWeight weight) {
    return weight == WarningWeight::kError ? RemarkKind::kError : RemarkKind::kWarning;
}

// One remark for each kind of warning, with all of its stories.
void OnWarnings(const Findings& findings, std::vector<Remark>& remarks) {
    std::map<WarningKind, std::vector<const Warning*>> byKind;
    for (const Warning& warning : findings.warnings)
        byKind[warning.kind].push_back(&warning);
    for (const auto& [kind, warnings] : byKind) {
        const WarningTexts& texts = TextsOf(kind);
        RemarkCause cause("R24", KindOf(texts.weight));
        for (const Warning* warning : warnings)
            cause.Add(warning->story, {FillIn(texts.en, *warning), FillIn(texts.ja, *warning)});
        cause.Set("original", FillIn(texts.log, *warnings.front()));
        cause.AppendTo(remarks);
    }
}

void OnMissingAnswers(const Findings& findings, std::vector<Remark>& remarks) {
    const RunEnd& end = findings.end;
    if (!end.missingAnswer.empty()) {
        RemarkCause cause("R25", RemarkKind::kError);
        cause.Add(0, {end.missingAnswer, end.missingAnswer});
        cause.Set("what", end.missingAnswer);
        if (!end.recordedFor.empty())
            cause.Set("input", BothLanguages{"It was made for " + end.recordedFor + ".",
                                             "記録時の入力ファイル: " + end.recordedFor + "。"});
        cause.AppendTo(remarks);
    }
    const struct {
        std::string_view key;
        std::size_t count;
    } counted[] = {{"R25W", end.unlistedZeros},
                   {"R25X", static_cast<std::size_t>(findings.failedExtraQuestions)}};
    for (const auto& [key, count] : counted) {
        if (count == 0) continue;
        RemarkCause cause(key, RemarkKind::kWarning);
        cause.Add(0, {std::to_string(count), std::to_string(count)});
        cause.Set("n", std::to_string(count));
        cause.Set("what", findings.firstFailedQuestion);
        cause.AppendTo(remarks);
    }
}

void OnIncompleteReports(const Findings& findings, std::vector<Remark>& remarks) {
    const RunEnd& end = findings.end;
    RemarkCause cause("R26", RemarkKind::kError);
    for (const std::string& path : end.incompleteReports)
        cause.Add(0, {path, path + " "});
    if (end.complete && !end.resultsWritten && end.incompleteReports.empty())
        cause.Add(0, {"the results file", "結果ファイル"});
    cause.AppendTo(remarks);
}

// What somebody would read in the results file is not what the run has found.
void OnOtherResults(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R26D", RemarkKind::kError);
    for (const NamedRow& row : findings.end.missingRows)
        cause.Add(row.story, {row.name, row.name});
    cause.AppendTo(remarks);
}

void OnWhatIsNotCovered(std::vector<Remark>& remarks) {
    RemarkCause cause("R27", RemarkKind::kNote);
    cause.Add(0, {"plates", "面材"});
    cause.AppendTo(remarks);
}

}  // namespace

void RemarkOnTheRun(const Findings& findings, std::vector<Remark>& remarks) {
    OnWarnings(findings, remarks);
    OnMissingAnswers(findings, remarks);
    OnIncompleteReports(findings, remarks);
    OnOtherResults(findings, remarks);
    OnWhatIsNotCovered(remarks);
}
