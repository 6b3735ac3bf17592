#pragma once

#include <string>

/// Opens a file in the program that the user's desktop has for its kind, such as a page in the
/// browser. False where there is no such desktop, or it refuses.
bool OpenOnDesktop(const std::string& path);
