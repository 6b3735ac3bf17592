#include "cli/check_command.h"

#include <algorithm>
#include <iostream>

#include "cli/messages.h"
#include "cli/run_reports.h"
#include "cli/summary.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "platform/one_line.h"
#include "platform/regular_file.h"
#include "platform/terminal.h"

namespace {

// The status list of a terminal: one line per entry, each shown at once.
class TerminalStatusList : public StatusList {
public:
    void Clear() override {}
    void Append(StatusText line) override { std::cout << TextOf(line) << std::endl; }
};

// Verdicts are shown from whole reports only: a table with rows missing could pass for good.
void PrintReports(const ReportPaths& reports, const RunOutcome& outcome) {
    const auto isIncomplete = [&outcome](const std::string& path) {
        return std::ranges::find(outcome.incompleteReports, path) !=
               outcome.incompleteReports.end();
    };
    const auto place = [&isIncomplete](const std::string& path) {
        return isIncomplete(path) ? OneLine(path) + " (incomplete)" : OneLine(path);
    };
    const LogReport log = ReadLog(reports.logFile);
    if (outcome.resultsWritten && !isIncomplete(reports.logFile))
        PrintVerdicts(std::cout, log, ReadResults(reports.resultFile), StandardOutputShowsColor());
    PrintWarnings(std::cout, log);
    const bool hasResults = outcome.resultsWritten || isIncomplete(reports.resultFile);
    std::cout << "\nLog:     " << place(reports.logFile) << "\nResults: "
              << (hasResults ? place(reports.resultFile) : "none written by this run") << std::endl;
}

void CautionAboutReports(const ReportPaths& reports, const RunOutcome& outcome) {
    for (const std::string& report : outcome.incompleteReports)
        TellCaution(report +
                    " is incomplete: it could not be written to its end; see that the disk has "
                    "room, and run again");
    if (!outcome.resultsNotOpened) return;
    const std::string refused =
        reports.resultFile + " cannot be opened for writing" +
        (outcome.resultsAreHeld ? ", another run or program keeps it to itself" : "");
    const bool isOlder = FileKindOf(reports.resultFile) == FileKind::kRegular;
    TellCaution(refused + (isOlder ? ": what stands there is from an earlier run, not from this one"
                                   : ": this run has no results"));
}

void TellWhyItEnded(const RunOutcome& outcome) {
    // A host can say as much as it likes.
    constexpr std::size_t kLongestHostText = 500;
    if (outcome.filesCollide)
        TellError(outcome.failure + "; nothing was written");
    else
        TellError("the run ended early: " + (outcome.hostFailed
                                                 ? OneLine(outcome.failure, kLongestHostText)
                                                 : outcome.failure));
}

}  // namespace

RunOutcome CheckOnHost(const HostConnector& connectHost, const std::string& inputPath,
                       const FileGuard& guard, LintsInput lintsInput) {
    if (lintsInput == LintsInput::kYes) CautionAboutInput(inputPath);
    TerminalStatusList status;
    ReportPaths reports;
    RunOutcome outcome;
    try {
        outcome = RunCompute(inputPath, connectHost, status, reports, WantsFindings::kNo, guard);
    } catch (const std::exception& error) {
        outcome.hostFailed = dynamic_cast<const HostCallError*>(&error) != nullptr;
        outcome.failure = error.what();
    }
    if (outcome.opensLog) PrintReports(reports, outcome);
    CautionAboutReports(reports, outcome);
    if (!outcome.complete) TellWhyItEnded(outcome);
    return outcome;
}

ExitCode CheckRecordedModel(const std::string& modelPath, const std::string& inputPath,
                            LintsInput lintsInput) {
    // Looked at before the model is read, which takes its time, and again by the run.
    const FileGuard guard = RequireAllDistinct();
    if (const auto collision = guard(FilesOfRun(inputPath, modelPath))) {
        TellError(*collision + "; nothing was written");
        return kExitUsage;
    }
    QhmContents contents;
    try {
        contents = ReadQhmFileWithCautions(modelPath);
    } catch (const QhmFileError& error) {
        TellError(error.what());
        return kExitUsage;
    }
    for (const std::string& caution : contents.cautions) TellCaution(modelPath + ": " + caution);
    RecordedHost host(contents.model, modelPath);
    return ExitCodeOf(CheckOnHost([&host] { return &host; }, inputPath, guard, lintsInput));
}
