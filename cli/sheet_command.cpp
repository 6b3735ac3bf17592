#include "cli/sheet_command.h"

#include <iostream>

#include "cli/building.h"
#include "cli/messages.h"
#include "compute/describe_run.h"
#include "host/recorded_host.h"
#include "input/input_check.h"
#include "platform/one_line.h"
#include "platform/open_file.h"
#include "platform/whole_file.h"
#include "sheet/sheet_file.h"

namespace {

std::string SheetPathFor(const SheetRequest& request, const std::string& modelPath,
                         const std::string& inputPath) {
    if (!request.sheetPath.empty()) return request.sheetPath;
    const std::string& folder = request.check.reportFolder;
    return SheetPath(folder.empty() ? modelPath : NameOfReportsIn(folder, modelPath, inputPath));
}

// Where the sheet goes is known once the host has named its model. `tables`: what the building is
// read from, beside the model file.
FileGuard GuardFor(const SheetRequest& request, std::vector<NamedFile> tables = {}) {
    return [&request, tables = std::move(tables)](const RunFiles& files) {
        std::vector<NamedFile> others = OutputsOf(request.check);
        others.push_back({"the sheet", SheetPathFor(request, files.model, files.input),
                          NamedFile::Use::kWritten});
        others.insert(others.end(), tables.begin(), tables.end());
        return RequireAllDistinct(std::move(others))(files);
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
bool WriteSheet(const SheetContent& content, const std::string& path) {
    try {
        WriteSheetFile(content, path);
        return true;
    } catch (const WholeFileError& error) {
        TellError(path + ": the sheet is not written: " + error.what());
        return false;
    }
}

ExitCode SheetWithGuard(const CheckedHost& host, const std::string& inputPath,
                        const std::string& hostModelPath, const SheetRequest& request,
                        const FileGuard& guard) {
    CheckResult checked = CheckOnHost(host, inputPath, request.check, guard);
    RunOutcome& outcome = checked.outcome;
    if (outcome.filesCollide) return checked.code;
    const std::string path = SheetPathFor(request, outcome.modelPath, inputPath);
    if (!outcome.findings) {
        TellError("the sheet is not written: the run ended before it had read the model");
        return checked.code;
    }
    const SheetSources sources = SourcesOf(host, inputPath, hostModelPath, request, checked);
    const SheetContent content =
        FormSheetContent(std::move(*outcome.findings), checked.input, sources);
    if (!WriteSheet(content, path)) return kExitEndedEarly;
    std::cout << "Sheet:   " << OneLine(path) << std::endl;
    if (request.opens && !OpenOnDesktop(path))
        TellCaution(path + ": the sheet is written, but cannot be opened from here");
    return checked.code;
}

}  // namespace

ExitCode SheetOnHost(const CheckedHost& host, const std::string& inputPath,
                     const std::string& hostModelPath, const SheetRequest& request) {
    return SheetWithGuard(host, inputPath, hostModelPath, request, GuardFor(request));
}

ExitCode SheetOfBuilding(const std::string& path, const std::string& inputPath,
                         const SheetRequest& request) {
    const std::string modelPath = ModelPathOf(path);
    const FileGuard guard = GuardFor(request, TablesOf(path));
    if (const auto collision =
            guard(FilesOfRun(inputPath, modelPath, request.check.reportFolder))) {
        TellError(*collision + "; nothing was written");
        return kExitUsage;
    }
    const BuildingRead building = ReadBuilding(path, inputPath);
    if (!building.model) return building.whyNot;
    RecordedHost host(*building.model, modelPath);
    const CheckedHost checked{[&host] { return &host; }, path,
                              [&host] { return host.UnlistedAnswers(); }};
    return SheetWithGuard(checked, inputPath, building.model->modelPath.value_or(""), request,
                          guard);
}
