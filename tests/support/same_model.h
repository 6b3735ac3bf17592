#pragma once

#include <string>

#include "host/recorded_model.h"

/// What a recorded host would answer otherwise for one model than for another: the first question
/// of which that is so, in words. Empty when it would answer all alike.
std::string DifferenceOf(const RecordedModel& one, const RecordedModel& other);
