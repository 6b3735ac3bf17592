#pragma once

#include <string>

#include "lint/lint_report.h"
#include "platform/user_language.h"

/// The report for a terminal: each finding with its line, a mark below and what to write instead;
/// then what a run reads, and how many findings there are.
std::string TextReport(const LintReport& report, Language language);
