#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

/// What was dropped on a window. Ends the drop.
std::vector<std::wstring> TakeDroppedFiles(HDROP drop);

/// The file arguments of this process's command line, without the program and its options.
struct ProgramArguments {
    std::vector<std::wstring> files;
    std::wstring language;  ///< of --lang: "en", "ja"; empty: the system's
};
ProgramArguments ArgumentsOfProcess();
