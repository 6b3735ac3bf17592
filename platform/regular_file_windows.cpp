#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "platform/full_path.h"
#include "platform/narrow_text.h"
#include "platform/regular_file.h"

FileKind FileKindOf(const std::string& path) {
    const std::wstring wide = WideText(path);
    // Devices and pipes have attributes, too, in some versions of Windows.
    if (FullPath(wide).starts_with(L"\\\\.\\")) return FileKind::kOther;
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return FileKind::kNothing;
    if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0) return FileKind::kOther;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::kFolder : FileKind::kRegular;
}

StdioFile OpenRegularFile(const std::string& path, ReadMode mode) {
    if (FileKindOf(path) != FileKind::kRegular) return nullptr;
    const HANDLE handle =
        CreateFileW(WideText(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return nullptr;
    const bool isText = mode == ReadMode::kText;
    const int file = GetFileType(handle) == FILE_TYPE_DISK
                         ? _open_osfhandle(reinterpret_cast<std::intptr_t>(handle),
                                           _O_RDONLY | (isText ? _O_TEXT : _O_BINARY))
                         : -1;
    if (file < 0) {
        CloseHandle(handle);
        return nullptr;
    }
    std::FILE* const stream = _fdopen(file, isText ? "rt" : "rb");
    if (stream == nullptr) _close(file);
    return StdioFile(stream);
}

// The C library drops carriage returns before line feeds and ends at the character 0x1A.
int ReadTextCharacter(std::FILE* file) {
    return std::fgetc(file);
}
