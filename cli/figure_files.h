#pragma once

#include <string>

#include "cli/check_options.h"
#include "compute/compute_run.h"
#include "report/run_description.h"

/// Where a run had its building from.
struct RunSource {
    std::string modelPath;      ///< as given on the command line; on the running host, the host's
    bool fromRecording = true;  ///< false: from the running host
};

/// What reports say of a run: its files with their digests, this program, and when it was made.
/// `date` stands for the time; empty: now.
RunDescription DescribeRun(const RunSource& source, const std::string& inputPath,
                           const std::string& date);

/// Writes the figures as the options want them, each file whole or not at all. False, with an error
/// line for each, when one cannot be written.
bool WriteFigureFiles(const Findings& findings, const RunDescription& run,
                      const FigureFiles& files);
