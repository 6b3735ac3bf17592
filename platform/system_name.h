#pragma once

/// The system that the program was built for, as reports name it.
#ifdef _WIN32
inline constexpr const char* kSystemName = "Windows x64";
#else
inline constexpr const char* kSystemName = "Linux";
#endif
