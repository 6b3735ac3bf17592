#include "cli/check_command.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <vector>

#include "cli/building.h"
#include "cli/check_report.h"
#include "cli/figure_files.h"
#include "cli/input_cautions.h"
#include "cli/make_folder.h"
#include "cli/messages.h"
#include "compute/describe_run.h"
#include "host/recorded_host.h"
#include "input/sheet_lines.h"
#include "lint/input_remarks.h"
#include "platform/one_line.h"
#include "platform/regular_file.h"
#include "platform/terminal.h"

namespace {

// The status list of a terminal: one line per entry, each shown at once.
class TerminalStatusList : public StatusList {
public:
    TerminalStatusList(Detail detail, const std::function<void()>& beforePrinting)
        : isShown_(detail != Detail::kQuiet), beforePrinting_(beforePrinting) {}

    void Clear() override {}
    void Append(StatusText line) override {
        if (!isShown_) return;
        beforePrinting_();
        std::cout << TextOf(line) << std::endl;
    }

private:
    bool isShown_;
    const std::function<void()>& beforePrinting_;
};

void PrintReportPlaces(const ReportPaths& reports, const RunOutcome& outcome) {
    const auto isIncomplete = [&outcome](const std::string& path) {
        return std::ranges::find(outcome.incompleteReports, path) !=
               outcome.incompleteReports.end();
    };
    const auto place = [&isIncomplete](const std::string& path) {
        return isIncomplete(path) ? OneLine(path) + " (incomplete)" : OneLine(path);
    };
    const bool hasResults = outcome.resultsWritten || isIncomplete(reports.resultFile);
    std::cout << "\nLog:     " << place(reports.logFile) << "\nResults: "
              << (hasResults ? place(reports.resultFile) : "none written by this run") << "\n";
}

void PrintFigurePlaces(const FigureFiles& files) {
    const struct {
        const char* what;
        const std::string& path;
    } places[] = {
        {"Figures: ", files.json}, {"Table:   ", files.table}, {"Members: ", files.memberTable}};
    for (const auto& [what, path] : places)
        if (!path.empty()) std::cout << what << OneLine(path) << "\n";
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

// Figures are there whenever the run had an engine. False when a file that was asked for is not
// written.
bool LeaveFigures(const RunOutcome& outcome, const CheckedHost& host, const std::string& inputPath,
                  const CheckOptions& options) {
    const FigureFiles& files = options.figureFiles;
    if (!outcome.findings) {
        for (const std::string& path : {files.json, files.table, files.memberTable})
            if (!path.empty())
                TellCaution(path + ": not written: the run ended before it had read the model");
        return true;
    }
    if (files.json.empty() && files.table.empty() && files.memberTable.empty()) return true;
    const bool fromRecording = !host.recordingPath.empty();
    const RunSource source{fromRecording ? host.recordingPath : outcome.modelPath, fromRecording};
    return WriteFigureFiles(*outcome.findings, DescribeRun(source, inputPath, options.date), files);
}

bool FailsOnVerdict(const std::optional<Findings>& findings, FailOn failOn) {
    if (!findings || failOn == FailOn::kNothing) return false;
    if (failOn == FailOn::kCode) return findings->verdict.code != CodeVerdict::kOk;
    return findings->verdict.tool != ToolVerdict::kPass;
}

ExitCode CodeOf(const RunOutcome& outcome, bool areFiguresLeft, FailOn failOn) {
    if (outcome.filesCollide) return kExitUsage;
    if (!outcome.complete || !areFiguresLeft) return kExitEndedEarly;
    return FailsOnVerdict(outcome.findings, failOn) ? kExitVerdict : kExitComplete;
}

RunOptions RunOptionsFor(const CheckedHost& host, const InputCheck& input,
                         const CheckOptions& options, const FileGuard& guard) {
    RunOptions run;
    run.wantsFindings = WantsFindings::kYes;
    run.guard = guard;
    run.reportFolder = options.reportFolder;
    run.inputRemarks = RemarksOnInput(input);
    run.groundLevel = SheetLinesOf(input.text).groundLevel;
    run.unlistedAnswers = host.unlistedAnswers;
    return run;
}

RunOutcome Run(const CheckedHost& host, const std::string& inputPath, const RunOptions& options,
               Detail detail, ReportPaths& reports) {
    TerminalStatusList status(detail, host.beforePrinting);
    try {
        return RunCompute(inputPath, host.connect, status, reports, options);
    } catch (const std::exception& error) {
        RunOutcome outcome;
        outcome.hostFailed = dynamic_cast<const HostCallError*>(&error) != nullptr;
        outcome.failure = error.what();
        return outcome;
    }
}

// What the run found, and where everything is.
void Print(const RunOutcome& outcome, const ReportPaths& reports, const CheckOptions& options,
           bool areFiguresLeft) {
    const bool inputIsTold = options.lintsInput == LintsInput::kYes;
    if (outcome.findings && outcome.logWritten)
        PrintFindings(std::cout, {*outcome.findings, outcome.printedVerdicts, inputIsTold},
                      options.detail, StandardOutputShowsColor());
    if (options.detail != Detail::kQuiet) {
        if (outcome.logWritten) PrintReportPlaces(reports, outcome);
        if (outcome.findings && areFiguresLeft) PrintFigurePlaces(options.figureFiles);
    }
    std::cout << std::flush;
}

}  // namespace

CheckResult CheckOnHost(const CheckedHost& host, const std::string& inputPath,
                        const CheckOptions& options, const FileGuard& guard) {
    if (!options.reportFolder.empty() && !MakeFolder(options.reportFolder, "log and results"))
        return {{}, {}, kExitUsage, {}};
    InputCheck input = CheckInputFile(inputPath);
    if (options.lintsInput == LintsInput::kYes)
        CautionAboutInput(input, inputPath, options.detail == Detail::kQuiet);
    ReportPaths reports;
    RunOutcome outcome =
        Run(host, inputPath, RunOptionsFor(host, input, options, guard), options.detail, reports);
    host.beforePrinting();
    const bool areFiguresLeft =
        outcome.filesCollide || LeaveFigures(outcome, host, inputPath, options);
    Print(outcome, reports, options, areFiguresLeft);
    CautionAboutReports(reports, outcome);
    if (!outcome.complete) TellWhyItEnded(outcome);
    const ExitCode code = CodeOf(outcome, areFiguresLeft, options.failOn);
    return {std::move(outcome), reports, code, std::move(input)};
}

ExitCode CheckBuilding(const std::string& path, const std::string& inputPath,
                       const CheckOptions& options) {
    const std::string modelPath = ModelPathOf(path);
    // Looked at before the building is read, which takes its time, and again by the run.
    std::vector<NamedFile> others = OutputsOf(options);
    std::ranges::move(TablesOf(path), std::back_inserter(others));
    const FileGuard guard = RequireAllDistinct(std::move(others));
    if (const auto collision = guard(FilesOfRun(inputPath, modelPath, options.reportFolder))) {
        TellError(*collision + "; nothing was written");
        return kExitUsage;
    }
    const BuildingRead building = ReadBuilding(path, inputPath);
    if (!building.model) return building.whyNot;
    RecordedHost host(*building.model, modelPath);
    const CheckedHost checked{[&host] { return &host; }, path,
                              [&host] { return host.UnlistedAnswers(); }};
    return CheckOnHost(checked, inputPath, options, guard).code;
}
