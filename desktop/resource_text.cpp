#include "desktop/resource_text.h"

#include <windows.h>

std::wstring ResourceText(int id) {
    // A buffer length of 0 asks for the place of the text itself, which is not zero-terminated.
    const wchar_t* text = nullptr;
    const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(id),
                                   reinterpret_cast<wchar_t*>(&text), 0);
    return {text, static_cast<std::size_t>(length)};
}
