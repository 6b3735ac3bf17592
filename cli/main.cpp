#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include "cli/check_command.h"
#include "cli/exit_codes.h"
#include "cli/live_commands.h"
#include "platform/dll_search.h"
#include "version.h"

namespace {

constexpr const char* kFooter = R"(
Examples:
  quarnel-cli check examples/two_story_y_up.qhm examples/two_story_y_up.csv
      checks a recorded building. The status lines come first, then a table of
      verdicts per check, the warnings of the log, and where the files are:
      examples/two_story_y_up.aijR2Log.txt and ...aijR2Result.csv.
  quarnel-cli check job.csv
      checks the building that is open in the running host (Windows only); log
      and results go beside the host's model file.
  quarnel-cli record job.csv job.qhm
      the same, and saves what the host answered: checking job.qhm with job.csv
      gives the same log and results where the host is not installed. With
      --all the recording can be checked with any input file.

The Route 2 Input file is comma-separated and ends with a line FIN, for example:
  DeadLoadCaseNumber,1,
  EarthquakeLoadCaseNumber,2,3,
  FIN

Exit codes:
  0  the run reached "Calculation Complete" (checks may still say FAIL)
  1  the run ended before; standard error says why
  2  wrong usage, or a model file that cannot be read)";

// `check MODEL.qhm INPUT.csv` or, on the running host, `check INPUT.csv`.
ExitCode Check(const std::vector<std::string>& files) {
    if (files.size() == 2) return CheckRecordedModel(files[0], files[1]);
    if (files[0].ends_with(".qhm")) {
        std::cerr << "quarnel-cli: check " << files[0]
                  << ": name the Route 2 Input file too: check MODEL.qhm INPUT.csv\n";
        return kExitUsage;
    }
    return CheckRunningHost(files[0]);
}

int RunCommand(int argc, char** argv) {
    CLI::App app(
        "Route 2 story checks of an analysed building: story deformation angle, story "
        "stiffness ratio and eccentricity modulus, each with PASS or FAIL.",
        "quarnel-cli");
    app.footer(kFooter);
    app.set_version_flag("--version", "quarnel-cli " QUARNEL_VERSION_TEXT);
    app.require_subcommand(1);
    app.allow_windows_style_options(false);  // a path may begin with a slash

    std::vector<std::string> files;
    CLI::App* check = app.add_subcommand(
        "check", "run the checks on a recorded building, or on the running host");
    check
        ->add_option("FILES", files,
                     "MODEL.qhm INPUT.csv: a recorded building (log and results go beside it) "
                     "and the Route 2 Input file; INPUT.csv alone: the running host")
        ->required()
        ->expected(1, 2);
    check->footer(kFooter);

    std::string input, recording;
    CLI::App* record = app.add_subcommand(
        "record", "run the checks on the running host and save its answers as a model file");
    record->add_option("INPUT.csv", input, "Route 2 Input file")->required();
    record->add_option("OUT.qhm", recording, "the recorded building to write")->required();
    bool recordsEverything = false;
    record->add_flag("--all", recordsEverything,
                     "ask for all nodes and members under all load cases, not only for what this "
                     "run needs: the recording then serves every input file");
    record->footer(kFooter);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& helpOrVersion) {
        return app.exit(helpOrVersion);
    } catch (const CLI::ParseError& error) {
        std::cerr << "quarnel-cli: " << error.what() << " (quarnel-cli --help shows the usage)\n";
        return kExitUsage;
    }
    if (!record->parsed()) return Check(files);
    return RecordRunningHost(
        input, recording, recordsEverything ? RecordingScope::kEverything : RecordingScope::kRun);
}

}  // namespace

int main(int argc, char** argv) {
    RestrictDllSearch();
    try {
        return RunCommand(argc, argv);
    } catch (const std::bad_alloc&) {
        std::cerr << "quarnel-cli: there is not enough memory for this model\n";
        return kExitEndedEarly;
    } catch (const std::exception& error) {
        std::cerr << "quarnel-cli: " << error.what() << "\n";
        return kExitEndedEarly;
    }
}
