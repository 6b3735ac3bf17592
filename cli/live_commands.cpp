#include "cli/live_commands.h"

#include <filesystem>
#include <iostream>
#include <optional>

#include "cli/check_command.h"
#include "cli/messages.h"
#include "cli/terminal_progress.h"
#include "host/live_host.h"
#include "host/qhm_file.h"
#include "host/recording.h"
#include "platform/native_path.h"
#include "platform/one_line.h"
#include "platform/whole_file.h"

namespace {

// Why a recording cannot be made. Looked at before the run, which can take minutes.
std::optional<std::string> WhyRecordingIsRefused(const NamedFile& input,
                                                 const NamedFile& recording) {
    if (const auto collision = WhyFilesCollide({input, recording}))
        return *collision + "; nothing was written";
    const std::filesystem::path folder = NativePath(recording.path).parent_path();
    std::error_code ignored;
    if (!folder.empty() && !std::filesystem::is_directory(folder, ignored))
        return recording.path + ": the folder of the recording does not exist";
    try {
        RequireWholeFileCanBeWritten(recording.path);
    } catch (const WholeFileError& error) {
        return recording.path + ": the recording cannot be written: " + error.what();
    }
    return std::nullopt;
}

ExitCode Fail(ExitCode code, const std::string& text) {
    TellError(text);
    return code;
}

// The running host, and on the terminal how far its questions are.
class WatchedLiveHost {
public:
    using Expected = std::size_t (*)(const ModelCounts&);

    explicit WatchedLiveHost(Expected expected = ExpectedQuestionsOfRun)
        : live_({.questions = [this, expected](const QuestionProgress& progress) {
              terminal_.Show(progress.answered, expected(progress.counts));
          }}) {}
    ~WatchedLiveHost() { terminal_.Clear(); }
    WatchedLiveHost(const WatchedLiveHost&) = delete;
    WatchedLiveHost& operator=(const WatchedLiveHost&) = delete;

    CheckedHost AsChecked() {
        return {.connect = [this] { return live_.Connect(); },
                .recordingPath = "",
                .beforePrinting = [this] { terminal_.Clear(); }};
    }

    RememberingHost* Remembered() const { return live_.Remembered(); }
    TerminalProgress& Terminal() { return terminal_; }

private:
    TerminalProgress terminal_;
    LiveHost live_;
};

// Asks what the recording needs beyond what the run has asked, and says what it is for.
RecordedFor CompleteRecording(RememberingHost& host, const std::string& inputPath,
                              RecordingScope scope) {
    if (scope == RecordingScope::kRun) {
        AskForOtherEnds(host);
        return RecordedForInput(inputPath);
    }
    AskForEverything(host);
    return RecordedForEverything();
}

void DescribeRecording(const RecordedModel& model, const std::string& path) {
    const std::size_t endForces = model.endForces[0].size() + model.endForces[1].size();
    std::cout << "Recorded: " << OneLine(path) << " (" << model.nodeList->size() << " nodes, "
              << model.memberList->size() << " members, " << model.displacements.size()
              << " node displacements, " << endForces << " member end forces; for "
              << (model.recordedFor->everything ? "every input file"
                                                : model.recordedFor->inputName + " only")
              << ")" << std::endl;
}

}  // namespace

ExitCode CheckRunningHost(const std::string& inputPath, const CheckOptions& options) {
    WatchedLiveHost live;
    return CheckOnHost(live.AsChecked(), inputPath, options, RequireAllDistinct(OutputsOf(options)))
        .code;
}

ExitCode RecordRunningHost(const std::string& inputPath, const std::string& recordingPath,
                           RecordingScope scope, const CheckOptions& options) {
    const NamedFile input{"the input file", inputPath, NamedFile::Use::kRead};
    const NamedFile recording{"the recording", recordingPath, NamedFile::Use::kWritten};
    if (const auto why = WhyRecordingIsRefused(input, recording)) return Fail(kExitUsage, *why);

    WatchedLiveHost live(scope == RecordingScope::kEverything ? ExpectedQuestionsOfEverything
                                                              : ExpectedQuestionsOfRun);
    const CheckResult checked =
        CheckOnHost(live.AsChecked(), inputPath, options, RequireAllDistinct({recording}));
    if (checked.outcome.filesCollide) return kExitUsage;
    RememberingHost* const host = live.Remembered();
    if (checked.outcome.hostFailed)
        return Fail(kExitEndedEarly, recordingPath + ": not written: a host call failed");
    if (host == nullptr || !host->Memory().nodeList || !host->Memory().memberList)
        return Fail(kExitEndedEarly,
                    recordingPath + ": not written: the run ended before it had read the model");
    try {
        const RecordedFor purpose = CompleteRecording(*host, inputPath, scope);
        live.Terminal().Clear();
        RecordedModel model = host->TakeMemory();
        model.recordedFor = purpose;
        WriteQhmFile(model, recordingPath);
        DescribeRecording(model, recordingPath);
    } catch (const HostCallError& error) {
        live.Terminal().Clear();
        return Fail(kExitEndedEarly,
                    recordingPath + ": not written: a host call failed: " + error.what());
    }
    return checked.code;
}

ExitCode SheetOfRunningHost(const std::string& inputPath, const SheetRequest& request) {
    WatchedLiveHost live;
    return SheetOnHost(live.AsChecked(), inputPath, "", request);
}

ExitCode LintRunningHost(const LintOptions& options) {
    LiveHost live;
    HostQueries* const host = live.Connect();
    if (host == nullptr)
        return Fail(kExitUsage, "no running host was found: start it and open the analysed model");
    return LintOnHost(*host, options);
}
