#include "app/wide_text.h"

#include <windows.h>

std::wstring Widen(const std::string& narrow) {
    const int length = static_cast<int>(narrow.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, narrow.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_ACP, 0, narrow.data(), length, wide.data(), needed);
    return wide;
}

std::string Narrow(const std::wstring& wide) {
    const int length = static_cast<int>(wide.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}
