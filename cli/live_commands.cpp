#include "cli/live_commands.h"

#include <filesystem>
#include <iostream>

#include "cli/check_command.h"
#include "host/live_host.h"
#include "host/qhm_file.h"
#include "platform/native_path.h"

namespace {

ExitCode Fail(ExitCode code, const std::string& text) {
    std::cerr << "quarnel-cli: " << text << "\n";
    return code;
}

// Looked at before the run, which can take minutes.
bool CanHoldRecording(const std::string& recordingPath) {
    const std::filesystem::path folder = NativePath(recordingPath).parent_path();
    std::error_code ignored;
    return folder.empty() || std::filesystem::is_directory(folder, ignored);
}

void DescribeRecording(const RecordedModel& model, const std::string& path) {
    const std::size_t endForces = model.endForces[0].size() + model.endForces[1].size();
    std::cout << "Recorded: " << path << " (" << model.nodeList->size() << " nodes, "
              << model.memberList->size() << " members, " << model.displacements.size()
              << " node displacements, " << endForces << " member end forces)" << std::endl;
}

}  // namespace

ExitCode CheckRunningHost(const std::string& inputPath) {
    LiveHost host;
    return ExitCodeOf(CheckOnHost([&host] { return host.Connect(); }, inputPath));
}

ExitCode RecordRunningHost(const std::string& inputPath, const std::string& recordingPath) {
    if (IsSameFile(inputPath, recordingPath))
        return Fail(kExitUsage, recordingPath + ": the recording would overwrite the input file");
    if (!CanHoldRecording(recordingPath))
        return Fail(kExitUsage, recordingPath + ": the folder of the recording does not exist");

    LiveHost host;
    const RunOutcome outcome = CheckOnHost([&host] { return host.Connect(); }, inputPath);
    const RecordedModel* const answers = host.Answers();
    if (outcome.hostFailed)
        return Fail(kExitEndedEarly, recordingPath + ": not written: a host call failed");
    if (answers == nullptr || !answers->nodeList || !answers->memberList)
        return Fail(kExitEndedEarly,
                    recordingPath + ": not written: the run ended before it had read the model");
    WriteQhmFile(*answers, recordingPath);
    DescribeRecording(*answers, recordingPath);
    return ExitCodeOf(outcome);
}
