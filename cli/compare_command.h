#pragma once

#include <string>

#include "cli/exit_codes.h"

struct CompareOptions {
    double tolerance = 0.001;  ///< relative; figures that differ by less are the same
    bool onlyChanges = false;
};

/// `quarnel-cli compare A.json B.json [OUT.html]`: prints what has changed from one run to the
/// other, and writes a page of it where one is wanted. kExitVerdict when a verdict changed.
ExitCode CompareFigureFiles(const std::string& pathA, const std::string& pathB,
                            const std::string& pagePath, const CompareOptions& options);
