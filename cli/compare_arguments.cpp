#include <memory>

#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/compare_command.h"

Command AddCompare(CLI::App& app) {
    CLI::App* const compare =
        AddCommand(app, "compare", "say what has changed from one run to another one");
    DescribeFile(*compare, "A.json", "the figures of the one run, as --json writes them");
    DescribeFile(*compare, "B.json", "those of the other one");
    DescribeFile(*compare, "OUT.html", "a page with tables and drawings, if wanted");
    const auto options = std::make_shared<CompareOptions>();
    compare
        ->add_option("--tolerance", options->tolerance,
                     "figures that differ by less than this part of themselves are the same "
                     "(0.001)")
        ->check(CLI::Range(0.0, 1.0));
    compare->add_flag("--only-changes", options->onlyChanges, "leave out what is the same");
    return {compare, [options](const std::vector<std::string>& files) {
                if (files.size() != 2 && files.size() != 3)
                    return WrongUsage("compare takes A.json and B.json, and OUT.html if wanted");
                return CompareFigureFiles(files[0], files[1], files.size() == 3 ? files[2] : "",
                                          *options);
            }};
}
