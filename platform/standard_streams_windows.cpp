#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>

#include "platform/standard_streams.h"
#include "platform/write_standard_output.h"

namespace {

struct StandardStream {
    DWORD id;
    int file;  ///< of the C library
};

constexpr StandardStream kStreams[] = {
    {STD_INPUT_HANDLE, 0}, {STD_OUTPUT_HANDLE, 1}, {STD_ERROR_HANDLE, 2}};

// A handle can be a number that leads to nothing, when whoever started the program has closed it or
// not let it be inherited.
bool LeadsSomewhere(HANDLE handle) {
    if (handle == nullptr || handle == INVALID_HANDLE_VALUE) return false;
    SetLastError(NO_ERROR);
    return GetFileType(handle) != FILE_TYPE_UNKNOWN || GetLastError() == NO_ERROR;
}

void LeadToNowhere(const StandardStream& stream, HANDLE before) {
    const HANDLE nowhere =
        CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    // The system may have given out the very number that led to nothing.
    if (nowhere == before || nowhere == INVALID_HANDLE_VALUE) return;
    SetStdHandle(stream.id, nowhere);
    const int file = _open_osfhandle(reinterpret_cast<std::intptr_t>(nowhere), _O_RDWR | _O_TEXT);
    if (file < 0 || file == stream.file) return;
    _dup2(file, stream.file);
}

}  // namespace

// Files and pipes of Windows raise no signals.
void PrepareStandardStreams() {
    for (const StandardStream& stream : kStreams) {
        const HANDLE handle = GetStdHandle(stream.id);
        if (!LeadsSomewhere(handle)) LeadToNowhere(stream, handle);
    }
}

Printed WriteStandardOutput(std::string_view text) {
    constexpr std::size_t kMostAtOnce = 4096;
    while (!text.empty()) {
        const auto size = static_cast<unsigned>(std::min(text.size(), kMostAtOnce));
        SetLastError(NO_ERROR);
        const int written = _write(1, text.data(), size);
        if (written <= 0) {
            const DWORD error = GetLastError();
            const bool isUnread = error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA;
            return isUnread ? Printed::kUnread : Printed::kLost;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return Printed::kWhole;
}
