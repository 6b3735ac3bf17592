#pragma once

#include <string>

#include "lint/lint_report.h"
#include "platform/user_language.h"

/// The report as one JSON object, UTF-8, ending in a line feed; docs/lint.md explains its
/// keys.
std::string JsonReport(const LintReport& report, Language language);
