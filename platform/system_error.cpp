#include "platform/system_error.h"

#include <windows.h>

#include "platform/narrow_text.h"

std::string SystemErrorText(std::uint32_t error) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring sentence(text, length);
    LocalFree(text);
    while (!sentence.empty() && (sentence.back() <= L' ' || sentence.back() == L'.'))
        sentence.pop_back();
    return sentence.empty() ? "system error " + std::to_string(error)
                            : NarrowText(sentence.c_str());
}
