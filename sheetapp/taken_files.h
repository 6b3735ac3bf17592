#pragma once

#include <string>
#include <vector>

#include "sheetapp/run_request.h"

/// What the program makes of files that it is given together: dropped, or as its arguments.
struct TakenFiles {
    RunRequest request;
    std::string stranger;        ///< the first file that is neither input file nor recording
    bool hasTwoOfAKind = false;  ///< which of them is meant, nobody knows
};

/// By the ends of their names, .csv and .qhm, in capitals or not. In any order.
TakenFiles TakeFiles(const std::vector<std::string>& paths);
