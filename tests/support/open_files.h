#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>
#ifdef _WIN32
#include <windows.h>
#endif

/// Files (on Windows: handles) that this process has open now.
inline std::ptrdiff_t OpenFiles() {
#ifdef _WIN32
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    return static_cast<std::ptrdiff_t>(handles);
#else
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
#endif
}
