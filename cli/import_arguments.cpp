#include <memory>

#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/import_command.h"

Command AddImport(CLI::App& app) {
    CLI::App* const import =
        AddCommand(app, "import", "make a recorded building of the tables of any analysis program");
    DescribeFile(*import, "FOLDER", "its tables: model.csv, nodes.csv, members.csv, ...");
    DescribeFile(*import, "OUT.qhm", "the recorded building to write");
    const auto options = std::make_shared<ImportOptions>();
    import->add_option("--for", options->inputPath,
                       "Route 2 Input file whose load cases the tables must answer; without it "
                       "every load case that has a row must be complete");
    import->add_flag("--force", options->force,
                     "write the building even if the tables do not fit what model.csv states");
    return {import, [options](const std::vector<std::string>& files) {
                if (files.size() != 2) return WrongUsage("import takes FOLDER and OUT.qhm");
                options->folder = files[0];
                options->modelPath = files[1];
                return ImportTablesOf(*options);
            }};
}
