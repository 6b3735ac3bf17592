#pragma once

#include <string>

/// Text in the process's narrow code page as the wide text of the Windows API, and back.
///
/// The manifest makes that code page UTF-8, so every path survives the way to the engine's narrow
/// paths and back. Where Windows is too old for it, characters outside its own code page are lost.
std::wstring Widen(const std::string& narrow);
std::string Narrow(const std::wstring& wide);
