#pragma once

#include <string>

#include "host/host_queries.h"
#include "lint/lint_report.h"

/// Whether a corrected file is wanted.
enum class WantsSuggestion { kNo, kYes };

/// Checks an input file by itself. A file that cannot be read is a finding too.
LintReport LintFile(const std::string& inputPath, WantsSuggestion wantsSuggestion);

/// A host, and how to speak of its model.
struct LintModel {
    HostQueries& host;
    std::string name;         ///< the file of a recorded building, or the host's model
    std::string recordedFor;  ///< input file for which it was recorded; empty when it is not known
};

/// Checks an input file against a building. Geometry is asked for first, results only when the host
/// has some. Nothing is written. What the host's geometry calls throw leaves this function.
LintReport LintAgainst(const std::string& inputPath, const LintModel& model,
                       WantsSuggestion wantsSuggestion);
