#pragma once

#include <string>

#include "platform/user_language.h"
#include "route2/findings.h"

/// The overall verdict by the building code in one line, UTF-8, with the value that decides it:
/// "NG: eccentricity, story 1, Y, 0.429 > 0.15"; of values that fail, the one farthest beyond its
/// limit, the lowest story first.
std::string VerdictLine(const Findings& findings, Language language);
