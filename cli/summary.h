#pragma once

#include <ostream>
#include <string>

#include "cli/run_reports.h"

/// Prints one table per check: a row per story, and for each direction the value under that
/// direction's earthquake load case, the allowable value and the verdict.
void PrintVerdicts(std::ostream& out, const LogReport& log, const ResultsReport& results,
                   bool useColor);

/// Prints the log's warnings, if there are any.
void PrintWarnings(std::ostream& out, const LogReport& log);
