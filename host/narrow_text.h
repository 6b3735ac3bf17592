#pragma once

#include <string>

/// UTF-16 text in the process's narrow code page, up to its first zero; empty for null.
/// Characters that the code page lacks become its replacement character.
std::string NarrowText(const wchar_t* text);
