// The commands on the running host where there can be none.

#include <iostream>

#include "cli/live_commands.h"

ExitCode CheckRunningHost(const std::string& inputPath) {
    std::cerr << "quarnel-cli: check " << inputPath
              << ": the running host can be reached on Windows only; name a recorded building "
                 "too: check MODEL.qhm INPUT.csv\n";
    return kExitUsage;
}

ExitCode RecordRunningHost(const std::string& inputPath, const std::string& recordingPath,
                           RecordingScope) {
    std::cerr << "quarnel-cli: record " << inputPath << " " << recordingPath
              << ": the running host can be reached on Windows only; record there\n";
    return kExitUsage;
}
