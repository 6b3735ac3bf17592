#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "cli/check_options.h"
#include "cli/exit_codes.h"

// What the commands' arguments have in common.

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description);

/// For the help alone: file names do not reach the library.
void DescribeFile(CLI::App& command, const std::string& name, const std::string& description);

/// --no-lint.
void AddNoLint(CLI::App& command, CheckOptions& options);

/// --reports DIR.
void AddReports(CLI::App& command, CheckOptions& options);

/// --fail-on code|tool|never.
void AddFailOn(CLI::App& command, FailOn& failOn);

/// One error line that leads to the help.
ExitCode WrongUsage(const std::string& text);
