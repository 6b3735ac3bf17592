#pragma once

#include <string>
#include <vector>

#include "compare/changes.h"
#include "sheet/words.h"

// Drawings of two runs in one: A thin and grey, B black.

/// How a value runs up the building.
struct ComparedProfile {
    Words title;
    std::vector<std::string> stories;  ///< names, lowest first
    std::vector<FigureRead> a;         ///< by story; none where the run has no such story or figure
    std::vector<FigureRead> b;
    double limit = 0.0;
    std::string limitText;
};
std::string ProfileDrawing(const ComparedProfile& profile);

/// The plan of a story with both centres of gravity and of rigidity; `a` or `b` may be missing.
std::string PlanDrawing(const StoryRead* a, const StoryRead* b, const std::string& secondDirection);
