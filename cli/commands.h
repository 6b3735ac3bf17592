#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "cli/exit_codes.h"

/// One command of quarnel-cli: its options on the command line, and what it does with the files
/// that are named there.
struct Command {
    CLI::App* arguments = nullptr;
    std::function<ExitCode(const std::vector<std::string>& files)> run;
};

Command AddBatch(CLI::App& app);
Command AddCheck(CLI::App& app);
Command AddCompare(CLI::App& app);
Command AddExport(CLI::App& app);
Command AddImport(CLI::App& app);
Command AddLint(CLI::App& app);
Command AddRecord(CLI::App& app);
Command AddSheet(CLI::App& app);
