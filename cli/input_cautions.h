#pragma once

#include <string>

#include "input/input_check.h"

/// Prints what an input file shows by itself as cautions on standard error, one line each: errors,
/// and warnings unless `errorsOnly`. A file that cannot be read is left to the run.
void CautionAboutInput(const InputCheck& check, const std::string& inputPath, bool errorsOnly);
