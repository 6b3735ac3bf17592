#include "desktop/empty_file.h"

#include <windows.h>

#include <stdexcept>

#include "platform/narrow_text.h"

namespace {

std::wstring SystemText(DWORD error) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring copy(text, length);
    LocalFree(text);
    return copy.empty() ? L"System error " + std::to_wstring(error) + L"." : copy;
}

}  // namespace

void CreateEmptyFile(const std::wstring& path) {
    // Not shared: a file that another program holds open is refused, not emptied under it.
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        const std::wstring reason = SystemText(GetLastError());
        const std::wstring text = L"The file could not be created:\n" + path + L"\n\n" + reason;
        throw std::runtime_error(NarrowText(text.c_str()));
    }
    CloseHandle(file);
}
