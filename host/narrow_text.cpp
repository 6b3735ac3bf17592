#include "host/narrow_text.h"

#include <windows.h>

std::string NarrowText(const wchar_t* text) {
    if (text == nullptr) return {};
    // With the terminating zero, which the string does not count.
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 1) return {};
    std::string narrow(static_cast<std::size_t>(size - 1), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.data(), size, nullptr, nullptr);
    return narrow;
}
