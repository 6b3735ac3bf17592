#pragma once

#include <string>
#include <string_view>

/// Makes a folder, and those above it that are missing. False where it cannot be made, after an
/// error that says so: "FOLDER: the folder for WHAT cannot be made".
bool MakeFolder(const std::string& folder, std::string_view what);
