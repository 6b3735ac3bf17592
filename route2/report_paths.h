#pragma once

#include <string>

// The two reports of a run stand beside the model and carry its name: the model path less its last
// three characters, whatever they are. The dot before a three-letter extension stays. A shorter
// path gives the bare names, in the current directory.

/// What the reports' paths begin with.
std::string ReportStem(const std::string& modelPath);

std::string LogPath(const std::string& modelPath);
std::string ResultPath(const std::string& modelPath);
