#include "cli/check_command.h"

#include <algorithm>
#include <iostream>

#include "cli/run_reports.h"
#include "cli/summary.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "input/input_file.h"
#include "platform/native_path.h"
#include "platform/terminal.h"
#include "route2/report_paths.h"

namespace {

// The status list of a terminal: one line per entry, each shown at once.
class TerminalStatusList : public StatusList {
public:
    void Clear() override {}
    void Append(StatusText line) override { std::cout << TextOf(line) << std::endl; }
};

void CautionAboutLoadCases(const std::string& inputPath) {
    for (const std::size_t line : FindLinesThatRepeatEarthquakeCase(inputPath))
        std::cerr << "quarnel-cli: caution: " << inputPath << ", line " << line
                  << ": this line has no comma and follows EarthquakeLoadCaseNumber, so it sets "
                     "both earthquake load cases to the second number given there; put it "
                     "elsewhere or end it with a comma\n";
}

// Verdicts are shown from whole reports only: a table with rows missing could pass for good.
void PrintReports(const ReportPaths& reports, const RunOutcome& outcome) {
    const auto isIncomplete = [&outcome](const std::string& path) {
        return std::ranges::find(outcome.incompleteReports, path) !=
               outcome.incompleteReports.end();
    };
    const auto place = [&isIncomplete](const std::string& path) {
        return isIncomplete(path) ? path + " (incomplete)" : path;
    };
    const LogReport log = ReadLog(reports.logFile);
    if (outcome.resultsWritten && !isIncomplete(reports.logFile))
        PrintVerdicts(std::cout, log, ReadResults(reports.resultFile), StandardOutputShowsColor());
    PrintWarnings(std::cout, log);
    const bool hasResults = outcome.resultsWritten || isIncomplete(reports.resultFile);
    std::cout << "\nLog:     " << place(reports.logFile) << "\nResults: "
              << (hasResults ? place(reports.resultFile) : "none written by this run") << std::endl;
}

// A run overwrites its two reports; an input file must not be one of them.
bool IsReportOf(const std::string& modelPath, const std::string& inputPath) {
    return IsSameFile(inputPath, LogPath(modelPath)) ||
           IsSameFile(inputPath, ResultPath(modelPath));
}

}  // namespace

RunOutcome CheckOnHost(const HostConnector& connectHost, const std::string& inputPath) {
    CautionAboutLoadCases(inputPath);
    TerminalStatusList status;
    ReportPaths reports;
    RunOutcome outcome;
    try {
        outcome = RunCompute(inputPath, connectHost, status, reports);
    } catch (const std::exception& error) {
        outcome.hostFailed = dynamic_cast<const HostCallError*>(&error) != nullptr;
        outcome.failure = error.what();
    }
    if (outcome.opensLog) PrintReports(reports, outcome);
    for (const std::string& report : outcome.incompleteReports)
        std::cerr << "quarnel-cli: caution: " << report
                  << " is incomplete: it could not be written to its end; see that the disk has "
                     "room, and run again\n";
    if (!outcome.complete)
        std::cerr << "quarnel-cli: the run ended early: " << outcome.failure << "\n";
    return outcome;
}

ExitCode CheckRecordedModel(const std::string& modelPath, const std::string& inputPath) {
    if (IsReportOf(modelPath, inputPath)) {
        std::cerr
            << "quarnel-cli: " << inputPath
            << ": this is a report that the run would overwrite; name the Route 2 Input file\n";
        return kExitUsage;
    }
    QhmContents contents;
    try {
        contents = ReadQhmFileWithCautions(modelPath);
    } catch (const QhmFileError& error) {
        std::cerr << "quarnel-cli: " << error.what() << "\n";
        return kExitUsage;
    }
    for (const std::string& caution : contents.cautions)
        std::cerr << "quarnel-cli: caution: " << modelPath << ": " << caution << "\n";
    RecordedHost host(contents.model, modelPath);
    return ExitCodeOf(CheckOnHost([&host] { return &host; }, inputPath));
}
