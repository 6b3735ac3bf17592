#include "cli/sheet_command.h"

#include <iostream>

#include "cli/figure_files.h"
#include "cli/messages.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "input/input_check.h"
#include "platform/one_line.h"
#include "platform/open_file.h"
#include "platform/whole_file.h"
#include "sheet/sheet.h"
#include "sheet/sheet_file.h"

namespace {

std::string SheetPathFor(const SheetRequest& request, const std::string& modelPath,
                         const std::string& inputPath) {
    if (!request.sheetPath.empty()) return request.sheetPath;
    const std::string& folder = request.check.reportFolder;
    return SheetPath(folder.empty() ? modelPath : NameOfReportsIn(folder, modelPath, inputPath));
}

// Where the sheet goes is known once the host has named its model.
FileGuard GuardFor(const SheetRequest& request) {
    return [&request](const RunFiles& files) {
        std::vector<NamedFile> written = OutputsOf(request.check);
        written.push_back(
            {"the sheet", SheetPathFor(request, files.model, files.input), NamedFile::Use::kWritten});
        return RequireAllDistinct(std::move(written))(files);
    };
}

SheetSources SourcesOf(const CheckedHost& host, const std::string& inputPath,
                       const std::string& hostModelPath, const SheetRequest& request,
                       const CheckResult& checked) {
    const RunOutcome& outcome = checked.outcome;
    const bool fromRecording = !host.recordingPath.empty();
    const RunSource source{fromRecording ? host.recordingPath : outcome.modelPath, fromRecording};
    SheetSources sources;
    sources.run = DescribeRun(source, inputPath, request.check.date);
    sources.dateIsGiven = !request.check.date.empty();
    sources.program = "quarnel-cli";
    sources.commandLine = request.commandLine;
    sources.hostModelPath = hostModelPath;
    sources.logPath = checked.reports.logFile;
    sources.resultsPath = checked.reports.resultFile;
    sources.options = request.sheet;
    return sources;
}

// False, with an error line, when the sheet is not written; an older one stays as it was.
bool WriteSheet(const Findings& findings, const SheetSources& sources, const std::string& path) {
    const InputCheck input = CheckInputFile(sources.run.inputPath);
    try {
        WriteWholeFile(path, SheetHtml(FormSheetContent(findings, input, sources)));
        return true;
    } catch (const WholeFileError& error) {
        TellError(path + ": the sheet is not written: " + error.what());
        return false;
    }
}

}  // namespace

ExitCode SheetOnHost(const CheckedHost& host, const std::string& inputPath,
                     const std::string& hostModelPath, const SheetRequest& request) {
    const CheckResult checked = CheckOnHost(host, inputPath, request.check, GuardFor(request));
    const RunOutcome& outcome = checked.outcome;
    if (outcome.filesCollide) return checked.code;
    const std::string path = SheetPathFor(request, outcome.modelPath, inputPath);
    if (!outcome.findings) {
        TellError("the sheet is not written: the run ended before it had read the model");
        return checked.code;
    }
    if (!WriteSheet(*outcome.findings,
                    SourcesOf(host, inputPath, hostModelPath, request, checked), path))
        return kExitEndedEarly;
    std::cout << "Sheet:   " << OneLine(path) << std::endl;
    if (request.opens && !OpenOnDesktop(path))
        TellCaution(path + ": the sheet is written, but cannot be opened from here");
    return checked.code;
}

ExitCode SheetOfRecordedModel(const std::string& modelPath, const std::string& inputPath,
                              const SheetRequest& request) {
    if (const auto collision = GuardFor(request)(FilesOfRun(inputPath, modelPath, request.check.reportFolder))) {
        TellError(*collision + "; nothing was written");
        return kExitUsage;
    }
    const std::optional<QhmContents> contents = ReadRecording(modelPath);
    if (!contents) return kExitUsage;
    RecordedHost host(contents->model, modelPath);
    const CheckedHost checked{
        [&host] { return &host; }, modelPath, [&host] { return host.UnlistedAnswers(); }};
    return SheetOnHost(checked, inputPath, contents->model.modelPath.value_or(""), request);
}
