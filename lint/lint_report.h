#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "input/input_check.h"
#include "input/lint_finding.h"
#include "lint/as_read.h"

/// Everything that the check of an input file has to say.
struct LintReport {
    std::string inputPath;
    InputCheck check;
    std::vector<LintFinding> findings;  ///< of the file and of the model, in order
    std::optional<AsRead> asRead;       ///< nothing when a run ends before it has read the file
    std::string suggestion;             ///< a corrected file, where one was asked for
};

std::size_t CountOf(const LintReport& report, LintKind kind);
