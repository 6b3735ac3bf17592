#pragma once

#include <string>

#include "input/input_check.h"
#include "lint/model_view.h"

/// An input file that a careful engineer would start from, UTF-8: the load cases, levels and values
/// that `check` says were meant, with comments on top for what is to be looked at.
std::string SuggestInput(const InputCheck& check, const std::string& inputPath);

/// The same with the levels, story members and load cases of a building.
std::string SuggestInputFor(const ModelView& view, const InputCheck& check,
                            const std::string& inputPath);
