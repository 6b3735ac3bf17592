#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <new>
#include <string>
#include <utility>

#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/exit_codes.h"
#include "cli/file_arguments.h"
#include "cli/help_footer.h"
#include "cli/messages.h"
#include "platform/dll_search.h"
#include "platform/standard_streams.h"
#include "version.h"

namespace {

int RunCommand(int argc, char** argv) {
    CLI::App app(
        "Route 2 story checks of an analysed building: story deformation angle, story "
        "stiffness ratio and eccentricity modulus, each with PASS or FAIL.",
        "quarnel-cli");
    app.footer(kHelpFooter);
    app.set_version_flag("--version", "quarnel-cli " QUARNEL_VERSION_TEXT);
    app.require_subcommand(1);
    app.allow_windows_style_options(false);  // a path may begin with a slash
    const Command commands[] = {AddCheck(app), AddSheet(app),  AddBatch(app),  AddCompare(app),
                                AddLint(app),  AddRecord(app), AddImport(app), AddExport(app)};

    CommandLine line = TakeOutFiles(app, argc, argv);
    std::ranges::reverse(line.options);  // as the library wants it
    try {
        app.parse(std::move(line.options));
    } catch (const CLI::Success& helpOrVersion) {
        return app.exit(helpOrVersion);
    } catch (const CLI::ParseError& error) {
        return WrongUsage(error.what());
    }
    for (const Command& command : commands)
        if (command.arguments->parsed()) return command.run(line.files);
    return kExitUsage;
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
