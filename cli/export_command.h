#pragma once

#include <string>

#include "cli/exit_codes.h"

/// `quarnel-cli export MODEL.qhm FOLDER`: the tables of a recorded building, in a new folder.
ExitCode ExportTablesOf(const std::string& modelPath, const std::string& folder);
