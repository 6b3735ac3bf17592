#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/export_command.h"

Command AddExport(CLI::App& app) {
    CLI::App* const exportTables =
        AddCommand(app, "export", "write the tables of a recorded building into a new folder");
    DescribeFile(*exportTables, "MODEL.qhm", "a recorded building");
    DescribeFile(*exportTables, "FOLDER", "the folder to make");
    return {exportTables, [](const std::vector<std::string>& files) {
                if (files.size() != 2) return WrongUsage("export takes MODEL.qhm and FOLDER");
                return ExportTablesOf(files[0], files[1]);
            }};
}
