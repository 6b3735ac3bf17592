#include "platform/file_lookup.h"

#ifdef _WIN32
#include <windows.h>

#include <string_view>
#else
#include <filesystem>
#endif

#ifdef _WIN32

namespace {

// A search takes these for patterns; no file can have them in its name. The prefix of long paths
// has one of its own.
bool HasPattern(std::wstring_view path) {
    constexpr std::wstring_view kLongPath = LR"(\\?\)";
    if (path.starts_with(kLongPath)) path.remove_prefix(kLongPath.size());
    return path.find_first_of(L"*?") != std::wstring_view::npos;
}

}  // namespace

bool FileExists(const std::string& path) {
    // UTF-16 has never more units than the narrow text has bytes. The narrow search has room for
    // 260 bytes of a name, which Windows allows 255 characters.
    std::wstring wide(path.size() + 1, L'\0');
    MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    if (HasPattern(wide)) return false;
    // A search, as the desktop's file finder makes it: it also sees a file that is locked.
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(wide.c_str(), &found);
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
