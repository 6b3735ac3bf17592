#include "app/file_lookup.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <filesystem>
#endif

#ifdef _WIN32

bool FileExists(const std::string& path) {
    // A search, as the desktop's file finder makes it: it also sees a file that is locked.
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return true;
}

#else

bool FileExists(const std::string& path) {
    std::error_code ignored;
    return !path.empty() && std::filesystem::exists(path, ignored);
}

#endif
