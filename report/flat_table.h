#pragma once

#include <string>

#include "route2/findings.h"

// The figures as comma-separated tables for spreadsheets and an office's own calculation book:
// UTF-8 with byte-order mark, CR LF, one heading row in Japanese and English, top story first,
// plain decimals without exponents. A figure that was not formed is an empty cell.

/// One row per story and direction, X first.
std::string FlatTable(const Findings& findings);

/// One row per story member, in the records' order.
std::string FlatMemberTable(const Findings& findings);
