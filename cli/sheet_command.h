#pragma once

#include <string>

#include "cli/check_command.h"
#include "cli/check_options.h"
#include "cli/exit_codes.h"
#include "sheet/sheet_content.h"

/// What `sheet` is asked for beside model and input file.
struct SheetRequest {
    CheckOptions check;
    SheetOptions sheet;
    std::string sheetPath;    ///< empty: beside log and results
    std::string commandLine;  ///< as it was typed
    bool opens = false;       ///< the sheet is opened when it is written
};

/// `quarnel-cli sheet MODEL.qhm INPUT.csv [OUT.html]`: a run on a recorded building or on that of a
/// folder of tables, as `check` makes and prints it, and its calculation sheet.
ExitCode SheetOfBuilding(const std::string& path, const std::string& inputPath,
                         const SheetRequest& request);

/// The same on any host. `hostModelPath`: of a recorded building, the model's on the machine where
/// it was recorded.
ExitCode SheetOnHost(const CheckedHost& host, const std::string& inputPath,
                     const std::string& hostModelPath, const SheetRequest& request);
