#include "cli/live_commands.h"

#include <filesystem>
#include <iostream>
#include <optional>

#include "cli/check_command.h"
#include "cli/messages.h"
#include "host/live_host.h"
#include "host/qhm_file.h"
#include "host/recording.h"
#include "platform/native_path.h"
#include "platform/one_line.h"
#include "platform/terminal.h"
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

// Shows how far the questions are, where somebody may be looking at the terminal: there can be
// millions of them.
class TerminalProgress {
public:
    void Show(std::size_t asked, std::size_t all) {
        const std::size_t percent = 100 * asked / all;
        if (!isShown_ || percent == percent_) return;
        percent_ = percent;
        std::cerr << "\rrecording: " << percent << " % of " << all << " answers"
                  << (asked == all ? "\n" : "") << std::flush;
    }

private:
    bool isShown_ = StandardErrorIsTerminal();
    std::size_t percent_ = 0;
};

// Asks what the recording needs beyond what the run has asked, and says what it is for.
RecordedFor CompleteRecording(RememberingHost& host, const std::string& inputPath,
                              RecordingScope scope) {
    if (scope == RecordingScope::kRun) {
        AskForOtherEnds(host);
        return RecordedForInput(inputPath);
    }
    TerminalProgress progress;
    AskForEverything(
        host, [&progress](std::size_t asked, std::size_t all) { progress.Show(asked, all); });
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
    LiveHost host;
    return CheckOnHost({[&host] { return host.Connect(); }, ""}, inputPath, options,
                       RequireAllDistinct(OutputsOf(options)))
        .code;
}

ExitCode RecordRunningHost(const std::string& inputPath, const std::string& recordingPath,
                           RecordingScope scope, const CheckOptions& options) {
    const NamedFile input{"the input file", inputPath, NamedFile::Use::kRead};
    const NamedFile recording{"the recording", recordingPath, NamedFile::Use::kWritten};
    if (const auto why = WhyRecordingIsRefused(input, recording)) return Fail(kExitUsage, *why);

    LiveHost live;
    const CheckResult checked = CheckOnHost({[&live] { return live.Connect(); }, ""}, inputPath,
                                            options, RequireAllDistinct({recording}));
    if (checked.outcome.filesCollide) return kExitUsage;
    RememberingHost* const host = live.Remembered();
    if (checked.outcome.hostFailed)
        return Fail(kExitEndedEarly, recordingPath + ": not written: a host call failed");
    if (host == nullptr || !host->Memory().nodeList || !host->Memory().memberList)
        return Fail(kExitEndedEarly,
                    recordingPath + ": not written: the run ended before it had read the model");
    try {
        const RecordedFor purpose = CompleteRecording(*host, inputPath, scope);
        RecordedModel model = host->TakeMemory();
        model.recordedFor = purpose;
        WriteQhmFile(model, recordingPath);
        DescribeRecording(model, recordingPath);
    } catch (const HostCallError& error) {
        return Fail(kExitEndedEarly,
                    recordingPath + ": not written: a host call failed: " + error.what());
    }
    return checked.code;
}

ExitCode SheetOfRunningHost(const std::string& inputPath, const SheetRequest& request) {
    LiveHost host;
    return SheetOnHost({[&host] { return host.Connect(); }, ""}, inputPath, "", request);
}

ExitCode LintRunningHost(const LintOptions& options) {
    LiveHost live;
    HostQueries* const host = live.Connect();
    if (host == nullptr)
        return Fail(kExitUsage, "no running host was found: start it and open the analysed model");
    return LintOnHost(*host, options);
}
