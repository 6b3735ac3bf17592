#include "cli/command_parts.h"

#include <map>

#include "cli/help_footer.h"
#include "cli/messages.h"

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description) {
    CLI::App* const command = app.add_subcommand(name, description);
    command->footer(kHelpFooter);
    return command;
}

void DescribeFile(CLI::App& command, const std::string& name, const std::string& description) {
    static_cast<void>(command.add_option_function<std::string>(
        name, [](const std::string&) {}, description));
}

void AddReports(CLI::App& command, CheckOptions& options) {
    command.add_option("--reports", options.reportFolder,
                       "put log and results into this folder, named after model and input file");
}

void AddNoLint(CLI::App& command, CheckOptions& options) {
    command.add_flag_callback(
        "--no-lint", [&options] { options.lintsInput = LintsInput::kNo; },
        "do not tell before the run what the input file shows by itself");
}

void AddFailOn(CLI::App& command, FailOn& failOn) {
    const std::map<std::string, FailOn> choices{
        {"code", FailOn::kCode}, {"tool", FailOn::kTool}, {"never", FailOn::kNothing}};
    command
        .add_option_function<std::string>(
            "--fail-on", [&failOn, choices](const std::string& kind) { failOn = choices.at(kind); },
            "code or tool: end with 3 when that overall verdict is not OK (PASS); never, which is "
            "the "
            "default")
        ->check(CLI::IsMember(choices));
}

ExitCode WrongUsage(const std::string& text) {
    TellError(text + " (quarnel-cli --help shows the usage)");
    return kExitUsage;
}
