#include <map>
#include <memory>

#include "cli/building.h"
#include "cli/check_command.h"
#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/live_commands.h"
#include "cli/messages.h"

namespace {

// `check MODEL.qhm INPUT.csv` or, on the running host, `check INPUT.csv`.
ExitCode Check(const std::vector<std::string>& files, const CheckOptions& options) {
    if (files.size() == 2) return CheckBuilding(files[0], files[1], options);
    if (files.size() != 1)
        return WrongUsage("check takes MODEL.qhm and INPUT.csv, or INPUT.csv alone");
    if (files[0].ends_with(".qhm") || IsTableFolder(files[0])) {
        TellError("check " + files[0] +
                  ": name the Route 2 Input file too: check MODEL.qhm INPUT.csv");
        return kExitUsage;
    }
    return CheckRunningHost(files[0], options);
}

void AddDetail(CLI::App& check, CheckOptions& options) {
    CLI::Option* const verbose = check.add_flag_callback(
        "--verbose", [&options] { options.detail = Detail::kVerbose; },
        "print notes too, and the count over all rows of the results");
    check
        .add_flag_callback(
            "--quiet", [&options] { options.detail = Detail::kQuiet; },
            "print errors and the verdict only")
        ->excludes(verbose);
}

void AddFiles(CLI::App& check, CheckOptions& options) {
    AddReports(check, options);
    FigureFiles& files = options.figureFiles;
    check.add_option("--json", files.json, "write the figures as JSON to this file");
    check.add_option("--table", files.table,
                     "write a table for spreadsheets, one row per story and direction");
    check.add_option("--table-members", files.memberTable,
                     "write a table for spreadsheets, one row per story member");
    check.add_option("--date", options.date,
                     "what JSON says as the time of the run; without it, now");
}

}  // namespace

Command AddCheck(CLI::App& app) {
    CLI::App* const check =
        AddCommand(app, "check", "run the checks on a recorded building, or on the running host");
    DescribeFile(*check, "FILES",
                 "MODEL.qhm INPUT.csv: a recorded building or a folder of tables (log and results "
                 "go beside it) "
                 "and the Route 2 Input file; INPUT.csv alone: the running host");
    const auto options = std::make_shared<CheckOptions>();
    AddDetail(*check, *options);
    AddFailOn(*check, options->failOn);
    AddFiles(*check, *options);
    AddNoLint(*check, *options);
    return {check,
            [options](const std::vector<std::string>& files) { return Check(files, *options); }};
}
