#pragma once

#include <string>

/// A name for a passing file, the same length every time, which nobody can know beforehand.
std::string UnusedName();
