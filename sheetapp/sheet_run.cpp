#include "sheetapp/sheet_run.h"

#include <exception>
#include <new>

#include "compute/describe_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "input/input_check.h"
#include "input/sheet_lines.h"
#include "lint/input_remarks.h"
#include "platform/whole_file.h"
#include "sheet/sheet_file.h"

namespace {

// A host, and what the sheet says of it.
struct RunHost {
    HostConnector connect;
    std::string hostModelPath;  ///< of a recording: the model's, where it was recorded
    std::function<std::size_t()> unlistedAnswers;
};

// No file of the run may be another one of it.
FileGuard Guard() {
    return [](const RunFiles& files) {
        return RequireAllDistinct(
            {{"the sheet", SheetPath(files.model), NamedFile::Use::kWritten}})(files);
    };
}

RunOptions OptionsFor(const InputCheck& input, const RunHost& host) {
    RunOptions options;
    options.wantsFindings = WantsFindings::kYes;
    options.guard = Guard();
    options.inputRemarks = RemarksOnInput(input);
    options.groundLevel = SheetLinesOf(input.text).groundLevel;
    options.unlistedAnswers = host.unlistedAnswers;
    return options;
}

void NoteFailure(const std::exception& error, RunOutcome& outcome) {
    outcome.failure = error.what();
    if (const auto* failedCall = dynamic_cast<const HostCallError*>(&error)) {
        outcome.hostFailed = true;
        outcome.hostStatus = failedCall->Status();
    }
}

SheetSources SourcesOf(const RunRequest& request, const RunHost& host, const RunResult& result) {
    const bool fromRecording = !request.recording.empty();
    const RunSource source{fromRecording ? request.recording : result.outcome.modelPath,
                           fromRecording};
    SheetSources sources;
    sources.run = DescribeRun(source, request.input, "");
    sources.program = "QuarnelSheet";
    sources.hostModelPath = host.hostModelPath;
    sources.logPath = result.reports.logFile;
    sources.resultsPath = result.reports.resultFile;
    return sources;
}

void WriteSheet(const RunRequest& request, const RunHost& host, const InputCheck& input,
                RunResult& result) {
    const std::string path = SheetPath(result.outcome.modelPath);
    try {
        const SheetContent content =
            FormSheetContent(*result.outcome.findings, input, SourcesOf(request, host, result));
        WriteSheetFile(content, path);
        result.sheetPath = path;
    } catch (const std::exception& error) {
        result.sheetFailure = path + ": " + error.what();
    }
}

// A run that was cancelled, or whose files are mixed up, leaves no sheet: an older one stays.
bool WantsSheet(const RunResult& result) {
    return result.outcome.findings.has_value() && !result.cancelled &&
           !result.outcome.filesCollide && !result.outcome.findings->stories.empty();
}

RunResult RunOn(const RunHost& host, const RunRequest& request, RunProgress& progress) {
    const InputCheck input = CheckInputFile(request.input);
    RunResult result;
    try {
        result.outcome = RunCompute(request.input, host.connect, progress, result.reports,
                                    OptionsFor(input, host));
    } catch (const std::exception& error) {
        NoteFailure(error, result.outcome);
    }
    const RunProgress::View view = progress.Look();
    result.lines = view.lines;
    result.hostWasBusy = view.hostIsBusy;
    result.cancelled = progress.IsCancelled() && !result.outcome.complete;
    if (WantsSheet(result)) WriteSheet(request, host, input, result);
    return result;
}

RunResult RunOnRecording(const RunRequest& request, RunProgress& progress) {
    RunResult result;
    QhmContents contents;
    try {
        contents = ReadQhmFileWithCautions(request.recording);
    } catch (const QhmFileError& error) {
        result.recordingFailure = error.what();
        return result;
    }
    RecordedHost recorded(contents.model, request.recording);
    CountingHost counting(recorded, [&](const QuestionProgress& now) { progress.Answered(now); });
    const RunHost host{[&] { return &counting; }, contents.model.modelPath.value_or(""),
                       [&] { return recorded.UnlistedAnswers(); }};
    return RunOn(host, request, progress);
}

}  // namespace

RunResult RunAndWriteSheet(const RunRequest& request, const HostConnector& connectHost,
                           RunProgress& progress) {
    try {
        if (!request.recording.empty()) return RunOnRecording(request, progress);
        return RunOn({connectHost, "", {}}, request, progress);
    } catch (const std::bad_alloc&) {
        RunResult result;
        result.outcome.failure = "there is not enough memory for this model";
        return result;
    }
}
