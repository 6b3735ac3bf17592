#include <windows.h>

#include <shellapi.h>

#include <cstdint>

#include "platform/native_path.h"
#include "platform/open_file.h"

bool OpenOnDesktop(const std::string& path) {
    constexpr std::intptr_t kGreatestFailure = 32;
    std::error_code unknown;
    const std::filesystem::path full = std::filesystem::absolute(NativePath(path), unknown);
    if (unknown) return false;
    const HINSTANCE answer =
        ShellExecuteW(nullptr, L"open", full.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(answer) > kGreatestFailure;
}
