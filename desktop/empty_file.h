#pragma once

#include <string>

/// Makes an empty file, or empties the one that is there. Throws std::runtime_error whose text
/// names the file and the system's reason.
void CreateEmptyFile(const std::wstring& path);
