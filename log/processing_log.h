#pragma once

#include <cstdio>
#include <string>

#include "log/formatted_print.h"

// The processing log tells the story of one run: which steps started and ended, the model's basic
// figures, and every warning by which a step refused or adjusted its work.
//
// An empty line stands before the start of a step and before a warning. A step that is refused or
// throws has no end line. Lines go through the stream's buffer: the file is complete when the run
// has closed it.

/// "Starts setting `subject`..."
void LogStart(std::FILE* log, const char* subject);

/// "Ends setting `subject`...", without an empty line before it.
void LogEnd(std::FILE* log, const char* subject);

/// "*** WARNING *** : `text`"
void LogWarning(std::FILE* log, const std::string& text);
