#pragma once

#include <string>

/// Whether the input file is looked at before a run.
enum class LintsInput { kNo, kYes };

/// Prints what an input file shows by itself, errors and warnings, as cautions on standard error,
/// one line each. A file that cannot be read is left to the run.
void CautionAboutInput(const std::string& inputPath);
