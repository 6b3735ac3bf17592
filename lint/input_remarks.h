#pragma once

#include <vector>

#include "input/input_check.h"
#include "route2/remark.h"

/// The errors and warnings of the input file as remarks of the run (R31), in the check's order,
/// each with its line and what to write.
std::vector<Remark> RemarksOnInput(const InputCheck& check);
