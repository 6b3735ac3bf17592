#pragma once

#include <string>

#include "compare/figures_file.h"
#include "report/number_text.h"

// The governing figures of a direction as text that does not contradict their verdicts.

std::string AngleTextOf(const StoryRead& story, const DirectionRead& direction,
                        const NumberStyle& style);
std::string RatioTextOf(const DirectionRead& direction, const NumberStyle& style);
std::string ModulusTextOf(const DirectionRead& direction, const NumberStyle& style);
