#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/detail.h"
#include "platform/distinct_files.h"

/// Whether what the input file shows by itself is told before a run.
enum class LintsInput { kNo, kYes };

/// Which overall verdict decides about the exit code.
enum class FailOn { kNothing, kCode, kTool };

/// What a run from the command line leaves beside log and results; empty paths: nothing.
struct FigureFiles {
    std::string json;         ///< the figures
    std::string table;        ///< one row per story and direction
    std::string memberTable;  ///< one row per story member
};

/// What `check` is asked for beside model and input file.
struct CheckOptions {
    LintsInput lintsInput = LintsInput::kYes;
    Detail detail = Detail::kUsual;
    FailOn failOn = FailOn::kNothing;
    std::string reportFolder;  ///< of log and results; empty: beside the model
    FigureFiles figureFiles;
    std::string date;  ///< stands for the time of the run; empty: now
};

/// What the options write, for whoever keeps files apart.
std::vector<NamedFile> OutputsOf(const CheckOptions& options);
