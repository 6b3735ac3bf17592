#pragma once

#include <string>

#include "input/input_check.h"
#include "platform/user_language.h"
#include "route2/findings.h"

/// Whether the check of the input file has found an error, which a person should look at before the
/// run.
bool HasErrors(const InputCheck& check);

/// The errors and warnings of the input check for reading: one paragraph each, with its line and
/// what to write instead. UTF-8, lines end with "\n". Empty when there are none.
std::string LinesOfInputCheck(const InputCheck& check, Language language);

/// The errors and warnings of a run in the same way, but for those about the input file.
std::string LinesOfRemarks(const Findings& findings, Language language);
