#include <windows.h>
#include <winioctl.h>

#include <cstring>
#include <vector>

#include "platform/file_identity.h"
#include "platform/full_path.h"
#include "platform/narrow_text.h"

namespace {

// A handle that is closed with its owner.
class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (IsOpen()) CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

// Opens a file or folder to look at it, whoever else has it open.
HANDLE OpenToLook(const std::wstring& path, DWORD flags = 0) {
    return CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
}

// Devices and pipes: opening one can do something.
bool IsNoFile(const std::wstring& fullPath) {
    return fullPath.empty() || fullPath.starts_with(L"\\\\.\\");
}

std::size_t StartOfName(const std::wstring& path) {
    return path.find_last_of(L"\\/") + 1;  // 0 when there is none
}

// A stream of a file ("name:stream") belongs to the file.
std::wstring WithoutStream(std::wstring path) {
    const std::size_t colon = path.find(L':', StartOfName(path));
    if (colon != std::wstring::npos) path.resize(colon);
    return path;
}

std::optional<FileIdentity> IdentityOfHandle(HANDLE file) {
    FILE_ID_INFO id;
    if (GetFileInformationByHandleEx(file, FileIdInfo, &id, sizeof id) != FALSE) {
        FileIdentity identity{id.VolumeSerialNumber, {}, {}};
        std::memcpy(identity.number.data(), id.FileId.Identifier, sizeof id.FileId.Identifier);
        return identity;
    }
    // File systems that have no identifiers of 128 bits.
    BY_HANDLE_FILE_INFORMATION info;
    if (GetFileInformationByHandle(file, &info) == FALSE) return std::nullopt;
    const std::uint64_t index = (std::uint64_t{info.nFileIndexHigh} << 32U) | info.nFileIndexLow;
    return FileIdentity{info.dwVolumeSerialNumber, {index, 0}, {}};
}

// As file names are compared: without case.
std::string Folded(const std::wstring& name) {
    std::wstring folded(name.size(), L'\0');
    const int length = static_cast<int>(name.size());
    LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, name.c_str(), length, folded.data(),
                  length, nullptr, nullptr, 0);
    return {reinterpret_cast<const char*>(folded.data()), folded.size() * sizeof(wchar_t)};
}

std::optional<FileIdentity> IdentityOfNewFile(const std::wstring& path) {
    const std::size_t start = StartOfName(path);
    if (start == path.size()) return std::nullopt;
    const Handle folder(OpenToLook(path.substr(0, start)));
    if (!folder.IsOpen()) return std::nullopt;
    std::optional<FileIdentity> identity = IdentityOfHandle(folder.get());
    if (identity) identity->newName = Folded(path.substr(start));
    return identity;
}

// What FSCTL_GET_REPARSE_POINT answers for a symbolic link, up to its names.
struct LinkHeader {
    ULONG tag;
    USHORT dataLength;
    USHORT reserved;
    USHORT substituteOffset;
    USHORT substituteLength;
    USHORT printOffset;
    USHORT printLength;
    ULONG flags;
};

// The target of a symbolic link as it is written there; empty for anything else.
std::wstring TargetOfLink(const std::wstring& path) {
    constexpr ULONG kIsRelative = 1;
    const Handle link(OpenToLook(path, FILE_FLAG_OPEN_REPARSE_POINT));
    if (!link.IsOpen()) return {};
    std::vector<char> answer(MAXIMUM_REPARSE_DATA_BUFFER_SIZE);
    DWORD size = 0;
    if (DeviceIoControl(link.get(), FSCTL_GET_REPARSE_POINT, nullptr, 0, answer.data(),
                        static_cast<DWORD>(answer.size()), &size, nullptr) == FALSE)
        return {};
    LinkHeader header{};
    if (size < sizeof header) return {};
    std::memcpy(&header, answer.data(), sizeof header);
    const std::size_t start = sizeof header + header.substituteOffset;
    if (header.tag != IO_REPARSE_TAG_SYMLINK || start + header.substituteLength > size) return {};
    std::wstring target(header.substituteLength / sizeof(wchar_t), L'\0');
    std::memcpy(target.data(), answer.data() + start, target.size() * sizeof(wchar_t));
    if ((header.flags & kIsRelative) != 0) return path.substr(0, StartOfName(path)) + target;
    // "\??\" is the system's own way of writing "\\?\".
    if (target.starts_with(L"\\??\\")) target[1] = L'\\';
    return target;
}

std::wstring WideWithoutLinks(std::wstring path) {
    constexpr int kMostLinks = 63;  // as the system itself follows
    for (int i = 0; i < kMostLinks; ++i) {
        const std::wstring target = TargetOfLink(path);
        if (target.empty()) break;
        path = target;
    }
    return path;
}

}  // namespace

std::string WithoutLinks(const std::string& path) {
    return NarrowText(WideWithoutLinks(WideText(path)).c_str());
}

std::optional<FileIdentity> IdentityOf(const std::string& path) {
    const std::wstring full = WithoutStream(FullPath(WideText(path)));
    if (IsNoFile(full)) return std::nullopt;
    const Handle file(OpenToLook(full));
    if (file.IsOpen())
        if (auto identity = IdentityOfHandle(file.get())) return identity;
    return IdentityOfNewFile(FullPath(WideWithoutLinks(full)));
}

std::optional<FileIdentity> IdentityOfStandardStream(int number) {
    const HANDLE stream = GetStdHandle(number == 1 ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    if (GetFileType(stream) != FILE_TYPE_DISK) return std::nullopt;
    return IdentityOfHandle(stream);
}
