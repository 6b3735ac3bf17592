#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "platform/narrow_text.h"
#include "platform/regular_file.h"
#include "platform/report_file.h"

namespace {

// A descriptor of the C library over a file opened for writing, not emptied by that; -1 when it
// cannot be had, with the reason in GetLastError.
int OpenToWrite(const std::wstring& path, DWORD sharing) {
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, sharing, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return -1;
    const int file = GetFileType(handle) == FILE_TYPE_DISK
                         ? _open_osfhandle(reinterpret_cast<std::intptr_t>(handle),
                                           _O_WRONLY | _O_TEXT | _O_NOINHERIT)
                         : -1;
    if (file < 0) {
        CloseHandle(handle);
        SetLastError(ERROR_INVALID_NAME);
    }
    return file;
}

HANDLE HandleOf(int file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(file));
}

}  // namespace

OpenedReport OpenReport(const std::string& path) {
    const FileKind kind = FileKindOf(path);
    if (kind == FileKind::kFolder || kind == FileKind::kOther)
        return {nullptr, ReportOpening::kNotAFile};
    // Readers may look; whoever writes already, or wants to, is refused by the system. What was
    // opened is emptied afterwards: a file that others hold keeps its contents.
    const int file = OpenToWrite(WideText(path), FILE_SHARE_READ);
    if (file < 0) {
        const bool isHeld = GetLastError() == ERROR_SHARING_VIOLATION;
        return {nullptr, isHeld ? ReportOpening::kHeld : ReportOpening::kRefused};
    }
    std::FILE* const stream = SetEndOfFile(HandleOf(file)) != FALSE ? _fdopen(file, "wt") : nullptr;
    if (stream == nullptr) {
        _close(file);
        return {nullptr, ReportOpening::kRefused};
    }
    return {stream, ReportOpening::kOpen};
}

// A handle that may write keeps the next run out, whatever it shares. So the stream's descriptor
// gets another one, which leads to nowhere; that closes the file.
void ReleaseReport(std::FILE* stream) {
    std::fflush(stream);
    const int nowhere = _wopen(L"NUL", _O_WRONLY | _O_TEXT | _O_NOINHERIT);
    if (nowhere < 0) return;
    _dup2(nowhere, _fileno(stream));
    _close(nowhere);
}
