#pragma once

#include "route2/remark_texts.h"

/// Why the code's verdict on a value is not determined.
enum class WhyUndetermined {
    kRunEndedEarly,  ///< before the value was formed
    kNoStoryMembers,
    kCaseNotInModel,
    kEqualCases,            ///< both directions have one earthquake case
    kNoDrift,               ///< the mean drift of the story is 0
    kNoWeight,              ///< nothing for a centre of gravity
    kNoStiffness,           ///< in one of the two directions
    kNoTorsionalStiffness,  ///< or a negative one
    kNotFinite,             ///< infinite, or not a number
};

/// The reason in a few words, without a stop.
BothLanguages ReasonOf(WhyUndetermined why);
