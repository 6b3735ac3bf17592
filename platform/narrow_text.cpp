#include "platform/narrow_text.h"

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

namespace {

std::wstring Widen(UINT codePage, const std::string& text) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), size);
    return wide;
}

}  // namespace

std::wstring WideText(const std::string& narrow) {
    return Widen(CP_ACP, narrow);
}

std::wstring WideTextOfUtf8(const std::string& utf8) {
    return Widen(CP_UTF8, utf8);
}

std::string Utf8OfWideText(const std::wstring& wide) {
    const int length = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), size, nullptr, nullptr);
    return utf8;
}
