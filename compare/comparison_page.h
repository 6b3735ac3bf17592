#pragma once

#include <string>

#include "compare/changes.h"

/// The comparison as one HTML page that needs nothing else, in Japanese and English: a table per
/// check and direction with both runs side by side, profiles over the stories (A thin and grey, B
/// black), a plan per story with both centres of gravity and of rigidity, and all other changes.
std::string ComparisonPage(const RunRead& a, const RunRead& b, const Comparison& comparison);
