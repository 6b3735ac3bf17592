#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/exit_codes.h"
#include "host/recorded_model.h"
#include "platform/distinct_files.h"

/// True when a command's file name is that of a folder, which is then one of tables.
bool IsTableFolder(const std::string& path);

/// False when a folder has not a single table; told on standard error then, in one line.
bool RequireTables(const std::string& folder);

/// Names the reports of a building: the `.qhm` file itself, or FOLDER.qhm beside a folder of
/// tables.
std::string ModelPathOf(const std::string& path);

/// The tables of a folder, which a command must not overwrite; none for a `.qhm` file.
std::vector<NamedFile> TablesOf(const std::string& path);

/// A building that a command names, once it has been read.
struct BuildingRead {
    std::optional<RecordedModel> model;
    ExitCode whyNot = kExitUsage;  ///< when there is no model: what the command returns
};

/// Reads a building from a `.qhm` file, or from a folder of tables. `inputPath`: the input file
/// that says which answers a run needs of the tables. What is wrong goes to standard error.
///
/// A folder of tables that has faults is an unreadable model; one whose statements cannot be right
/// ends the command early.
BuildingRead ReadBuilding(const std::string& path, const std::string& inputPath);
