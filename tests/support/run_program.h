#pragma once

#include <string>
#include <vector>

#include "tests/support/test_folder.h"

/// How a program ended and what it printed, line ends read as "\n".
struct ProgramRun {
    int exitCode = -1;  ///< -1: it did not end by itself
    std::string out;
    std::string err;
};

/// Runs a program to its end, with nothing on its standard input. Its output goes through files in
/// `folder`. Throws std::runtime_error when it cannot be started.
ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const TestFolder& folder);
