#pragma once

#include <string>

#include "input/input_check.h"
#include "report/run_description.h"
#include "route2/findings.h"
#include "sheet/sheet_content.h"

/// What a sheet takes from elsewhere than the findings.
struct SheetSources {
    RunDescription run;
    bool dateIsGiven = false;   ///< then no time and no system of this run stand in the sheet
    std::string program;        ///< "quarnel-cli"
    std::string commandLine;    ///< empty: none
    std::string hostModelPath;  ///< of the model on the host's machine
    std::string logPath;
    std::string resultsPath;
    SheetOptions options;
};

/// The content of the sheet of a run: its findings, its input file and its files with their
/// digests.
SheetContent FormSheetContent(Findings findings, const InputCheck& input,
                              const SheetSources& sources);

/// Writes the sheet, whole or not at all. Throws WholeFileError (platform/whole_file.h).
void WriteSheetFile(const SheetContent& content, const std::string& path);

/// Where the sheet of a model stands unless it is told: beside log and results, with their stem.
std::string SheetPath(const std::string& modelPath);
