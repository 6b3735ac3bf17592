// The commands on the running host where there can be none.

#include "cli/live_commands.h"
#include "cli/messages.h"

ExitCode CheckRunningHost(const std::string& inputPath, const CheckOptions& /*options*/) {
    TellError("check " + inputPath +
              ": the running host can be reached on Windows only; name a recorded building "
              "too: check MODEL.qhm INPUT.csv");
    return kExitUsage;
}

ExitCode RecordRunningHost(const std::string& inputPath, const std::string& recordingPath,
                           RecordingScope /*scope*/, const CheckOptions& /*options*/) {
    TellError("record " + inputPath + " " + recordingPath +
              ": the running host can be reached on Windows only; record there");
    return kExitUsage;
}

ExitCode SheetOfRunningHost(const std::string& inputPath, const SheetRequest& /*request*/) {
    TellError("sheet " + inputPath +
              ": the running host can be reached on Windows only; name a recorded building "
              "too: sheet MODEL.qhm INPUT.csv");
    return kExitUsage;
}

ExitCode LintRunningHost(const LintOptions& options) {
    TellError("lint " + options.inputPath +
              " --host: the running host can be reached on Windows only; name a recorded "
              "building: lint INPUT.csv MODEL.qhm");
    return kExitUsage;
}
