#include <memory>

#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/lint_command.h"

Command AddLint(CLI::App& app) {
    CLI::App* const lint =
        AddCommand(app, "lint", "say what a run would make of an input file, and write nothing");
    DescribeFile(*lint, "INPUT.csv", "Route 2 Input file");
    DescribeFile(*lint, "MODEL.qhm",
                 "a recorded building, or a folder of tables, to check it against");
    const auto options = std::make_shared<LintOptions>();
    lint->add_flag("--host", options->onHost, "check it against the running host");
    lint->add_option("--lang", options->language, "en or ja; without it the system's language")
        ->check(CLI::IsMember({"en", "ja"}));
    lint->add_option("--format", options->format, "text (which is the default), json or github")
        ->check(CLI::IsMember({"text", "json", "github"}));
    lint->add_flag("--strict", options->isStrict, "warnings count as errors for the exit code");
    lint->add_option("--suggest", options->suggestionPath,
                     "write a corrected file, never over one that is there; "
                     "INPUT.suggested.csv when no name follows")
        ->expected(0, 1);
    return {lint, [lint, options](const std::vector<std::string>& files) {
                if (files.empty() || files.size() > 2 || (files.size() == 2 && options->onHost))
                    return WrongUsage("lint takes INPUT.csv, and MODEL.qhm or --host");
                options->suggests = lint->count("--suggest") > 0;
                options->inputPath = files[0];
                if (files.size() == 2) options->modelPath = files[1];
                return Lint(*options);
            }};
}
