#pragma once

#include <filesystem>
#include <string>

/// What stands between the folders of a path on this system.
#ifdef _WIN32
inline constexpr const char* kPathSeparators = "/\\:";
#else
inline constexpr const char* kPathSeparators = "/";
#endif

/// A narrow path as the C library's fopen understands it, for std::filesystem. On Windows the two
/// differ: the standard library of some compilers drops what is not ASCII.
std::filesystem::path NativePath(const std::string& narrow);

/// The same path, or any other narrow text of the command line, in UTF-8.
std::string Utf8Text(const std::string& narrow);

/// UTF-8 as a narrow text of this system. Characters that the narrow code page lacks become its
/// replacement character.
std::string NarrowOfUtf8(const std::string& utf8);
