#pragma once

#include <string>

// Text between UTF-16, as Windows and COM speak it, and narrow strings.

/// UTF-16 text in the process's narrow code page, up to its first zero; empty for null.
/// Characters that the code page lacks become its replacement character.
std::string NarrowText(const wchar_t* text);

/// Text in the process's narrow code page as UTF-16.
std::wstring WideText(const std::string& narrow);

/// UTF-8 text as UTF-16, whatever the narrow code page is.
std::wstring WideTextOfUtf8(const std::string& utf8);

/// UTF-16 text as UTF-8, whatever the narrow code page is.
std::string Utf8OfWideText(const std::wstring& wide);
