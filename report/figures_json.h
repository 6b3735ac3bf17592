#pragma once

#include <string>

#include "report/run_description.h"
#include "route2/findings.h"

/// The figures of a run as JSON (docs/figures-json.md): UTF-8, keys in a fixed order, numbers that
/// read back to the same double, null for what was not formed. The same findings and description
/// give the same bytes everywhere.
std::string FiguresJson(const Findings& findings, const RunDescription& run);
