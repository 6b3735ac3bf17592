#include "lint/lint.h"

#include <algorithm>
#include <optional>

#include "input/file_rules.h"
#include "lint/model_check.h"
#include "lint/model_rules.h"
#include "lint/model_view.h"
#include "lint/suggestion.h"

namespace {

// A member in several stories is a mistake when it does not run through all of them.
void SplitByWhatTheySpan(const ModelView& view, const LintFinding& finding,
                         LintFindingList& findings) {
    LintFinding spanning = finding;
    LintFinding other = FindingOf(FileRule::kS09DoesNotSpan, finding.place);
    spanning.members.clear();
    other.stories = finding.stories;
    for (const std::int32_t member : finding.members)
        (SpansItsStories(view, member) ? spanning : other).Member(member);
    for (LintFinding* part : {&spanning, &other}) {
        if (part->members.empty()) continue;
        part->parameters.clear();
        findings.Add(part->With("m", NumberList(part->members)));
    }
}

void AddFileFindings(const ModelView& view, const InputCheck& check, LintFindingList& findings) {
    for (const LintFinding& finding : check.findings) {
        if (finding.rule->id == "S09" && view.HasStories())
            SplitByWhatTheySpan(view, finding, findings);
        else
            findings.Add(finding);
    }
}

// Without stories every check is empty, and the run still completes.
void CheckThatThereAreStories(const ModelView& view, LintFindingList& findings) {
    const bool areDerived = view.Levels().levels.empty() && !view.EndedBeforeStories();
    if (areDerived && view.Engine().stories.empty()) findings.Add(FindingOf(FileRule::kV08, {}));
}

void CheckAgainst(ModelView& view, const LintModel& model, const InputCheck& check,
                  LintFindingList& findings) {
    CheckCasesOfModel(view, model.host, findings);
    CheckSoundnessOfModel(view, findings);
    CheckNumbersOfMembers(view, check, findings);
    if (view.EndedBeforeStories()) return;
    CheckThatThereAreStories(view, findings);
    CheckLevelsOfModel(view, check, findings);
    if (!view.HasStories()) return;
    CheckMembersOfStories(view, findings);
    CheckResultsOfModel(view, model.name, model.recordedFor, findings);
}

void AddFindingsAgainst(ModelView& view, const LintModel& model, LintReport& report) {
    // The file's own rules once more, now that the number of stories is known.
    if (report.check.meantLevels.levels.empty())
        report.check = CheckInputText(report.check.text, view.Engine().stories.size());
    LintFindingList findings;
    AddFileFindings(view, report.check, findings);
    CheckAgainst(view, model, report.check, findings);
    report.findings = findings.Sorted();
    report.check.findingsLeftOut += findings.LeftOut();
}

}  // namespace

LintReport LintFile(const std::string& inputPath, WantsSuggestion wantsSuggestion) {
    LintReport report;
    report.inputPath = inputPath;
    report.check = CheckInputFile(inputPath);
    report.findings = report.check.findings;
    if (report.check.isRead) report.asRead = ReadWithoutModel(report.check.text);
    if (wantsSuggestion == WantsSuggestion::kYes && report.check.isRead)
        report.suggestion = SuggestInput(report.check, inputPath);
    return report;
}

LintReport LintAgainst(const std::string& inputPath, const LintModel& model,
                       WantsSuggestion wantsSuggestion) {
    LintReport report = LintFile(inputPath, WantsSuggestion::kNo);
    if (!report.check.isRead) return report;
    ModelView view(model.host, report.check, inputPath);
    if (report.asRead) report.asRead = ReadWithModel(report.check.text, view);
    if (report.check.isInput) AddFindingsAgainst(view, model, report);
    if (wantsSuggestion == WantsSuggestion::kYes)
        report.suggestion = SuggestInputFor(view, report.check, inputPath);
    return report;
}
