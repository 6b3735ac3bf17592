#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// A command line with its file names taken out, for CLI11 would read some of them as something
/// else: "[a,b]" as a list, "++" as the end of a command.
struct CommandLine {
    std::vector<std::string> options;  ///< the command's name, its options and their values
    std::vector<std::string> files;    ///< in their order, exactly as the shell passed them
};

/// File names are what follows the command's name and is no option and no option's value; behind
/// "--", everything is. `app` knows the commands and which of their options take a value.
CommandLine TakeOutFiles(const CLI::App& app, int argc, const char* const* argv);
