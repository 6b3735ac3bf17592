#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cli/check_command.h"
#include "cli/exit_codes.h"

namespace {

constexpr const char* kFooter = R"(
Examples:
  quarnel-cli check examples/two_story_y_up.qhm examples/two_story_y_up.csv
      checks a recorded building. The status lines come first, then a table of
      verdicts per check, the warnings of the log, and where the files are:
      examples/two_story_y_up.aijR2Log.txt and ...aijR2Result.csv.

The Route 2 Input file is comma-separated and ends with a line FIN, for example:
  DeadLoadCaseNumber,1,
  EarthquakeLoadCaseNumber,2,3,
  FIN

Exit codes:
  0  the run reached "Calculation Complete" (checks may still say FAIL)
  1  the run ended before; standard error says why
  2  wrong usage, or a model file that cannot be read)";

int RunCommand(int argc, char** argv) {
    CLI::App app(
        "Route 2 story checks of an analysed building: story deformation angle, story "
        "stiffness ratio and eccentricity modulus, each with PASS or FAIL.",
        "quarnel-cli");
    app.footer(kFooter);
    app.set_version_flag("--version", "quarnel-cli " QUARNEL_VERSION);
    app.require_subcommand(1);
    app.allow_windows_style_options(false);  // a path may begin with a slash

    std::string model, input;
    CLI::App* check = app.add_subcommand("check", "run the checks on a recorded building");
    check->add_option("MODEL.qhm", model, "recorded building; log and results go beside it")
        ->required();
    check->add_option("INPUT.csv", input, "Route 2 Input file")->required();
    check->footer(kFooter);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& helpOrVersion) {
        return app.exit(helpOrVersion);
    } catch (const CLI::ParseError& error) {
        std::cerr << "quarnel-cli: " << error.what() << " (quarnel-cli --help shows the usage)\n";
        return kExitUsage;
    }
    return CheckRecordedModel(model, input);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return RunCommand(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "quarnel-cli: " << error.what() << "\n";
        return kExitEndedEarly;
    }
}
