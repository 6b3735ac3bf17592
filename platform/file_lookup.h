#pragma once

#include <string>

/// True when something (a file or a folder) has exactly this path, in the process's narrow code
/// page. False for an empty path.
bool FileExists(const std::string& path);
