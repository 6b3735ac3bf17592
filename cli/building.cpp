#include "cli/building.h"

#include <filesystem>

#include "cli/messages.h"
#include "cli/tables_messages.h"
#include "host/qhm_file.h"
#include "platform/native_path.h"
#include "platform/regular_file.h"
#include "tables/import_tables.h"
#include "tables/load_roles.h"

namespace {

BuildingRead ReadRecording(const std::string& path) {
    try {
        QhmContents contents = ReadQhmFileWithCautions(path);
        const std::string place = path + ": ";
        for (const std::string& caution : contents.cautions)
            TellCaution(place + caution);
        return {std::move(contents.model), kExitComplete};
    } catch (const QhmFileError& error) {
        TellError(error.what());
        return {};
    }
}

// Without the input file's load cases, when it cannot be read: the run tells that by itself.
BuildingRead ReadTables(const std::string& folder, const std::string& inputPath) {
    if (!RequireTables(folder)) return {};
    TablesImport import = ImportTables(folder, ReadInputRoles(inputPath));
    TellCautions(import);
    if (TellFaults(folder, import)) return {};
    if (!TellWrongStatements(import)) return {std::move(import.model), kExitComplete};
    TellError(folder +
              ": the tables do not fit what model.csv states; nothing was done. To use "
              "them all the same: quarnel-cli import --force, then the model it writes");
    return {std::nullopt, kExitEndedEarly};
}

}  // namespace

bool IsTableFolder(const std::string& path) {
    return FileKindOf(path) == FileKind::kFolder;
}

bool RequireTables(const std::string& folder) {
    for (const TableName table : kAllTables)
        if (FileKindOf(folder + "/" + FileNameOf(table)) != FileKind::kNothing) return true;
    TellError(folder +
              ": this folder has no tables; model.csv, nodes.csv, supports.csv, members.csv, "
              "cases.csv, displacements.csv and forces.csv are expected");
    return false;
}

std::string ModelPathOf(const std::string& path) {
    if (!IsTableFolder(path)) return path;
    std::string folder = path;
    while (folder.size() > 1 && (folder.back() == '/' || folder.back() == '\\'))
        folder.pop_back();
    const std::size_t name = folder.find_last_of("/\\") + 1;
    // The folder that one stands in has no name in its path.
    std::error_code error;
    if (folder.substr(name) == "." || folder.substr(name) == "..")
        folder = std::filesystem::canonical(NativePath(folder), error).string();
    return folder + ".qhm";
}

std::vector<NamedFile> TablesOf(const std::string& path) {
    std::vector<NamedFile> tables;
    if (!IsTableFolder(path)) return tables;
    for (const TableName table : kAllTables)
        tables.push_back({std::string("the table ") + FileNameOf(table),
                          path + "/" + FileNameOf(table), NamedFile::Use::kRead});
    return tables;
}

BuildingRead ReadBuilding(const std::string& path, const std::string& inputPath) {
    return IsTableFolder(path) ? ReadTables(path, inputPath) : ReadRecording(path);
}
