#pragma once

#include "input/input_check.h"
#include "route2/findings.h"
#include "sheet/sheet_content.h"

/// The input file line by line, with what the run took from each line, what the check of the file
/// says of it, and what no line gave.
InputAsRead FormInputAsRead(const InputCheck& check, const Findings& findings);
