#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "cli/check_command.h"
#include "cli/exit_codes.h"
#include "cli/file_arguments.h"
#include "cli/lint_command.h"
#include "cli/live_commands.h"
#include "cli/messages.h"
#include "platform/dll_search.h"
#include "platform/standard_streams.h"
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
  quarnel-cli lint job.csv job.qhm
      says what a run would make of the input file: traps with their lines and
      what to write, then what a run reads. Writes nothing; --suggest does.
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
  1  the run ended before; standard error says why (lint: an error was found)
  2  wrong usage, files that would overwrite each other, or a file that cannot
     be read

A file name that begins with a hyphen goes behind "--".)";

ExitCode WrongUsage(const std::string& text) {
    TellError(text + " (quarnel-cli --help shows the usage)");
    return kExitUsage;
}

// `check MODEL.qhm INPUT.csv` or, on the running host, `check INPUT.csv`.
ExitCode Check(const std::vector<std::string>& files, LintsInput lintsInput) {
    if (files.size() == 2) return CheckRecordedModel(files[0], files[1], lintsInput);
    if (files.size() != 1)
        return WrongUsage("check takes MODEL.qhm and INPUT.csv, or INPUT.csv alone");
    if (files[0].ends_with(".qhm")) {
        TellError("check " + files[0] +
                  ": name the Route 2 Input file too: check MODEL.qhm INPUT.csv");
        return kExitUsage;
    }
    return CheckRunningHost(files[0], lintsInput);
}

ExitCode Record(const std::vector<std::string>& files, RecordingScope scope,
                LintsInput lintsInput) {
    if (files.size() != 2) return WrongUsage("record takes INPUT.csv and OUT.qhm");
    return RecordRunningHost(files[0], files[1], scope, lintsInput);
}

ExitCode LintInput(const std::vector<std::string>& files, LintOptions options) {
    if (files.empty() || files.size() > 2 || (files.size() == 2 && options.onHost))
        return WrongUsage("lint takes INPUT.csv, and MODEL.qhm or --host");
    options.inputPath = files[0];
    if (files.size() == 2) options.modelPath = files[1];
    return Lint(options);
}

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description) {
    CLI::App* const command = app.add_subcommand(name, description);
    command->footer(kFooter);
    return command;
}

// For the help alone: file names do not reach the library.
void DescribeFile(CLI::App& command, const std::string& name, const std::string& description) {
    static_cast<void>(command.add_option_function<std::string>(
        name, [](const std::string&) {}, description));
}

CLI::App* AddLint(CLI::App& app, LintOptions& options) {
    CLI::App* const lint =
        AddCommand(app, "lint", "say what a run would make of an input file, and write nothing");
    DescribeFile(*lint, "INPUT.csv", "Route 2 Input file");
    DescribeFile(*lint, "MODEL.qhm", "a recorded building to check it against");
    lint->add_flag("--host", options.onHost, "check it against the running host");
    lint->add_option("--lang", options.language, "en or ja; without it the system's language")
        ->check(CLI::IsMember({"en", "ja"}));
    lint->add_option("--format", options.format, "text (which is the default), json or github")
        ->check(CLI::IsMember({"text", "json", "github"}));
    lint->add_flag("--strict", options.isStrict, "warnings count as errors for the exit code");
    lint->add_option("--suggest", options.suggestionPath,
                     "write a corrected file, never over one that is there; "
                     "INPUT.suggested.csv when no name follows")
        ->expected(0, 1);
    return lint;
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

    CLI::App* const check =
        AddCommand(app, "check", "run the checks on a recorded building, or on the running host");
    DescribeFile(*check, "FILES",
                 "MODEL.qhm INPUT.csv: a recorded building (log and results go beside it) "
                 "and the Route 2 Input file; INPUT.csv alone: the running host");
    CLI::App* const record = AddCommand(
        app, "record", "run the checks on the running host and save its answers as a model file");
    DescribeFile(*record, "INPUT.csv", "Route 2 Input file");
    DescribeFile(*record, "OUT.qhm", "the recorded building to write");
    bool recordsEverything = false;
    record->add_flag("--all", recordsEverything,
                     "ask for all nodes and members under all load cases, not only for what this "
                     "run needs: the recording then serves every input file");

    bool skipsLint = false;
    for (CLI::App* const command : {check, record})
        command->add_flag("--no-lint", skipsLint, "do not look at the input file before the run");
    LintOptions lintOptions;
    CLI::App* const lint = AddLint(app, lintOptions);

    CommandLine line = TakeOutFiles(app, argc, argv);
    std::reverse(line.options.begin(), line.options.end());  // as the library wants it
    try {
        app.parse(std::move(line.options));
    } catch (const CLI::Success& helpOrVersion) {
        return app.exit(helpOrVersion);
    } catch (const CLI::ParseError& error) {
        return WrongUsage(error.what());
    }
    lintOptions.suggests = lint->count("--suggest") > 0;
    if (lint->parsed()) return LintInput(line.files, lintOptions);
    const LintsInput lintsInput = skipsLint ? LintsInput::kNo : LintsInput::kYes;
    if (check->parsed()) return Check(line.files, lintsInput);
    return Record(line.files,
                  recordsEverything ? RecordingScope::kEverything : RecordingScope::kRun,
                  lintsInput);
}

int RunGuarded(int argc, char** argv) {
    try {
        return RunCommand(argc, argv);
    } catch (const std::bad_alloc&) {
        TellError("there is not enough memory for this model");
    } catch (const std::exception& error) {
        TellError(error.what());
    }
    return kExitEndedEarly;
}

}  // namespace

int main(int argc, char** argv) {
    RestrictDllSearch();
    PrepareStandardStreams();
    StandardOutput output;
    const int code = RunGuarded(argc, argv);
    if (output.Finish() != Printed::kLost) return code;
    TellError("standard output cannot be written: the disk is full, or the like");
    return code == kExitComplete ? kExitEndedEarly : code;
}
