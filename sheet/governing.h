#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "route2/findings.h"

// The story of a direction that comes closest to a limit, or is farthest beyond it: the lowest of
// equal ones. Null where no story has the value.

const StoryFindings* GoverningAngle(const std::vector<StoryFindings>& stories, std::size_t axis);
const StoryFindings* GoverningRatio(const std::vector<StoryFindings>& stories, std::size_t axis);
const StoryFindings* GoverningModulus(const std::vector<StoryFindings>& stories, std::size_t axis);
