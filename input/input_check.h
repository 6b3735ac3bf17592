#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "input/floor_level_rules.h"
#include "input/input_text.h"
#include "input/lint_finding.h"

/// What an input file shows without a model: each finding compares what a run takes with what a
/// person meant by the line.
struct InputCheck {
    bool isRead = false;   ///< the file can be opened; false: F01 says why not
    bool isInput = false;  ///< it is a text that can be an input file, whatever is wrong with it
    bool hasFin = false;   ///< a run gets beyond reading the load case numbers
    InputText text;
    MeantLevels meantLevels;
    std::vector<LintFinding> findings;  ///< in the order in which they are told
    std::size_t findingsLeftOut = 0;
};

/// `storyCountInModel`: the number of stories when the levels come from the model, if it is known.
InputCheck CheckInputFile(const std::string& path,
                          std::optional<std::size_t> storyCountInModel = std::nullopt);

/// The same for a text that has been read.
InputCheck CheckInputText(InputText text,
                          std::optional<std::size_t> storyCountInModel = std::nullopt);
