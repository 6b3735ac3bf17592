#pragma once

#include <cstddef>

#include "sheet/sheet_parts.h"

// What the first page has room for: head, summary with every remark that is an error, and, of a
// building that is not too high, its stories. The eye must find there what is wrong with the input.

/// Above that many stories they have a page of their own.
inline constexpr std::size_t kMostStoriesOnFirstPage = 8;

/// Whether stories share the page with errors, or with more long paths and names than it has room
/// for: all of it is then set closer.
bool IsFirstPageCrowded(const Sheet& sheet);

/// How high the building may be drawn so that the first page holds everything up to the tables,
/// mm on paper.
double GreatestElevation(const Sheet& sheet);
