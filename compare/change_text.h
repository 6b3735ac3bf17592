#pragma once

#include <string>

#include "compare/changes.h"

/// The comparison for a terminal: one line per change under the heading of its section. What is the
/// same ends with "=", and is left out with `onlyChanges`.
std::string ChangeText(const RunRead& a, const RunRead& b, const Comparison& comparison,
                       bool onlyChanges);
