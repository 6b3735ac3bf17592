#pragma once

#include <string>

#include "report/run_description.h"

/// Where a run had its building from.
struct RunSource {
    std::string modelPath;      ///< as given by the user; on the running host, the host's
    bool fromRecording = true;  ///< false: from the running host
};

/// What reports say of a run: its files with their digests, this program, and when it was made.
/// `date` stands for the time; empty: now.
RunDescription DescribeRun(const RunSource& source, const std::string& inputPath,
                           const std::string& date);
