#include "platform/held_file.h"

#include <windows.h>

#include "platform/narrow_text.h"

HeldFile::HeldFile(const std::string& path)
    : handle_(CreateFileW(WideText(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}

HeldFile::~HeldFile() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
}
