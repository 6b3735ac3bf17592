#include "cli/export_command.h"

#include <iostream>

#include "cli/messages.h"
#include "host/qhm_file.h"
#include "platform/one_line.h"
#include "tables/export_tables.h"

namespace {

// "jobs/tower.qhm" is "tower.qhm".
std::string NameOf(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

ExitCode ExportTablesOf(const std::string& modelPath, const std::string& folder) {
    const std::string place = modelPath + ": ";
    try {
        const QhmContents contents = ReadQhmFileWithCautions(modelPath);
        for (const std::string& caution : contents.cautions)
            TellCaution(place + caution);
        for (const std::string& caution : ExportTables(contents.model, NameOf(modelPath), folder))
            TellCaution(place + caution);
    } catch (const QhmFileError& error) {
        TellError(error.what());
        return kExitUsage;
    } catch (const TablesExportError& error) {
        TellError("export " + modelPath + ": " + error.what());
        return kExitUsage;
    }
    std::cout << "Tables: " << OneLine(folder) << std::endl;
    return kExitComplete;
}
