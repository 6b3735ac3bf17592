#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/file_identity.h"
#include "platform/full_path.h"
#include "platform/narrow_text.h"
#include "platform/regular_file.h"
#include "platform/stdio_file.h"
#include "platform/system_error.h"
#include "platform/unused_name.h"
#include "platform/whole_file.h"

namespace {

[[noreturn]] void Fail(const std::string& what, DWORD error) {
    throw WholeFileError(what + ": " + SystemErrorText(error));
}

// Whoever has the old file open can forbid that it goes; asked before the work is done.
void RequireReplaceable(const std::wstring& path) {
    const HANDLE old =
        CreateFileW(path.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (old == INVALID_HANDLE_VALUE) Fail("it cannot be replaced", GetLastError());
    CloseHandle(old);
    if ((GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0)
        Fail("it may not be written", ERROR_ACCESS_DENIED);
}

}  // namespace

class WholeFile::PassingFile {
public:
    explicit PassingFile(const std::string& path) : target_(WideText(WithoutLinks(path))) {
        const FileKind kind = FileKindOf(path);
        if (kind == FileKind::kFolder || kind == FileKind::kOther)
            throw WholeFileError("what stands there is not a regular file");
        if (kind == FileKind::kRegular) RequireReplaceable(target_);
        const HANDLE handle = Create();
        const int file =
            _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_WRONLY | _O_BINARY);
        stream_.reset(file >= 0 ? _fdopen(file, "wb") : nullptr);
        if (stream_ == nullptr) throw WholeFileError("it cannot be opened");
    }
    ~PassingFile() {
        if (stream_ != nullptr) Remove();
    }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;

    std::FILE* Stream() const { return stream_.get(); }

    void Finish() {
        const bool isWritten = std::fflush(Stream()) == 0 && std::ferror(Stream()) == 0 &&
                               FlushFileBuffers(Handle()) != FALSE;
        if (!isWritten) throw WholeFileError("the disk is full or cannot be written to");
        if (!Rename()) Fail("it cannot be put in place", GetLastError());
        stream_.reset();
    }

private:
    HANDLE Handle() const {
        return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream_.get())));
    }

    // To itself, so that nobody can hold on to it when it is put in place.
    HANDLE Create() {
        const std::wstring folder = target_.substr(0, target_.find_last_of(L"\\/:") + 1);
        for (;;) {
            const std::wstring name = folder + WideText(UnusedName());
            const HANDLE file = CreateFileW(name.c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                            CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
            if (file != INVALID_HANDLE_VALUE) return file;
            const DWORD error = GetLastError();
            if (error != ERROR_FILE_EXISTS) Fail("no file can be made in its folder", error);
        }
    }

    bool Rename() {
        const std::wstring full = FullPath(target_);
        const std::size_t bytes = full.size() * sizeof(wchar_t);
        std::vector<std::byte> memory(sizeof(FILE_RENAME_INFO) + bytes);
        auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(memory.data());
        info->ReplaceIfExists = TRUE;
        info->FileNameLength = static_cast<DWORD>(bytes);
        std::memcpy(info->FileName, full.data(), bytes);
        return SetFileInformationByHandle(Handle(), FileRenameInfo, info,
                                          static_cast<DWORD>(memory.size())) != FALSE;
    }

    void Remove() {
        FILE_DISPOSITION_INFO remove{TRUE};
        SetFileInformationByHandle(Handle(), FileDispositionInfo, &remove, sizeof remove);
    }

    std::wstring target_;
    StdioFile stream_;  ///< null when the file is in its place
};

WholeFile::WholeFile(const std::string& path) : file_(std::make_unique<PassingFile>(path)) {}
WholeFile::~WholeFile() = default;

std::FILE* WholeFile::Stream() const {
    return file_->Stream();
}

void WholeFile::Finish() {
    file_->Finish();
}
