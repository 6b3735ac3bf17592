#pragma once

#include <string>

#include "lint/lint_report.h"
#include "platform/user_language.h"

/// The findings as annotations of a workflow, one line each.
std::string GithubReport(const LintReport& report, Language language);
