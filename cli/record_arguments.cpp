#include <memory>

#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/live_commands.h"

Command AddRecord(CLI::App& app) {
    CLI::App* const record = AddCommand(
        app, "record", "run the checks on the running host and save its answers as a model file");
    DescribeFile(*record, "INPUT.csv", "Route 2 Input file");
    DescribeFile(*record, "OUT.qhm", "the recorded building to write");
    const auto scope = std::make_shared<RecordingScope>(RecordingScope::kRun);
    record->add_flag_callback(
        "--all", [scope] { *scope = RecordingScope::kEverything; },
        "ask for all nodes and members under all load cases, not only for what this run needs: "
        "the recording then serves every input file");
    const auto options = std::make_shared<CheckOptions>();
    AddNoLint(*record, *options);
    return {record, [scope, options](const std::vector<std::string>& files) {
                if (files.size() != 2) return WrongUsage("record takes INPUT.csv and OUT.qhm");
                return RecordRunningHost(files[0], files[1], *scope, *options);
            }};
}
