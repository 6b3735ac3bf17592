#include "cli/import_command.h"

#include <iostream>
#include <optional>
#include <vector>

#include "cli/building.h"
#include "cli/messages.h"
#include "cli/tables_messages.h"
#include "host/qhm_file.h"
#include "platform/distinct_files.h"
#include "platform/file_lookup.h"
#include "platform/one_line.h"
#include "platform/whole_file.h"
#include "tables/import_tables.h"
#include "tables/load_roles.h"

namespace {

// The model must not be written over what it is made of.
std::optional<std::string> WhyFilesAreMixedUp(const ImportOptions& options) {
    using Use = NamedFile::Use;
    std::vector<NamedFile> files = TablesOf(options.folder);
    files.push_back({"the recorded building", options.modelPath, Use::kWritten});
    files.push_back({"the input file", options.inputPath, Use::kRead});
    for (NamedFile& stream : StandardOutputFiles())
        files.push_back(std::move(stream));
    return WhyFilesCollide(files);
}

// Looked at before the tables are read, which can take its time.
std::optional<std::string> WhyImportIsRefused(const ImportOptions& options) {
    if (!IsTableFolder(options.folder))
        return options.folder + (FileExists(options.folder)
                                     ? ": this is a file; a folder of tables is expected"
                                     : ": there is no such folder");
    if (const auto why = WhyFilesAreMixedUp(options)) return *why + "; nothing was written";
    try {
        RequireWholeFileCanBeWritten(options.modelPath);
    } catch (const WholeFileError& error) {
        return options.modelPath + ": the recorded building cannot be written: " + error.what();
    }
    return std::nullopt;
}

ExitCode Refuse(const std::string& why) {
    TellError(why);
    return kExitUsage;
}

}  // namespace

ExitCode ImportTablesOf(const ImportOptions& options) {
    if (const auto why = WhyImportIsRefused(options)) return Refuse(*why);
    if (!RequireTables(options.folder)) return kExitUsage;
    std::optional<InputRoles> input;
    if (!options.inputPath.empty()) {
        input = ReadInputRoles(options.inputPath);
        if (!input)
            return Refuse(options.inputPath + ": this input file cannot be read to a line FIN");
    }
    const TablesImport import = ImportTables(options.folder, input);
    TellCautions(import);
    if (TellFaults(options.folder, import)) return kExitUsage;
    std::cout << import.report;
    if (TellWrongStatements(import) && !options.force) {
        TellError(options.modelPath +
                  ": not written: the tables do not fit what model.csv states; correct it, or add "
                  "--force to write the building all the same");
        return kExitEndedEarly;
    }
    WriteQhmFile(*import.model, options.modelPath);
    std::cout << "\nWritten: " << OneLine(options.modelPath) << std::endl;
    return kExitComplete;
}
