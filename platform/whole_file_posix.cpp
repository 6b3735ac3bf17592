#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "platform/file_identity.h"
#include "platform/mode_of_new_files.h"
#include "platform/stdio_file.h"
#include "platform/unused_name.h"
#include "platform/whole_file.h"

namespace {

constexpr mode_t kPermissions = 0777;

[[noreturn]] void Fail(const std::string& what) {
    throw WholeFileError(what + ": " + std::strerror(errno));
}

}  // namespace

class WholeFile::PassingFile {
public:
    explicit PassingFile(const std::string& path) : target_(WithoutLinks(path)) {
        struct stat old {};
        const bool isThere = stat(target_.c_str(), &old) == 0;
        if (isThere && !S_ISREG(old.st_mode))
            throw WholeFileError("what stands there is not a regular file");
        if (isThere && access(target_.c_str(), W_OK) != 0) Fail("it may not be written");
        const int file = Create();
        if (isThere) fchmod(file, old.st_mode & kPermissions);
        stream_.reset(fdopen(file, "w"));
        if (stream_ != nullptr) return;
        close(file);
        Remove();
        Fail("it cannot be opened");
    }
    ~PassingFile() {
        stream_.reset();
        Remove();
    }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;

    std::FILE* Stream() const { return stream_.get(); }

    void Finish() {
        std::FILE* const stream = stream_.get();
        const bool isWritten = std::fflush(stream) == 0 && std::ferror(stream) == 0 &&
                               (fsync(fileno(stream)) == 0 || errno == EINVAL);
        if (std::fclose(stream_.release()) != 0 || !isWritten)
            throw WholeFileError("the disk is full or cannot be written to");
        if (rename(name_.c_str(), target_.c_str()) != 0) Fail("it cannot be put in place");
        name_.clear();
    }

private:
    int Create() {
        const std::filesystem::path folder = std::filesystem::path(target_).parent_path();
        for (;;) {
            name_ = (folder / UnusedName()).string();
            const int file =
                open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kModeOfNewFiles);
            if (file >= 0) return file;
            if (errno == EEXIST) continue;
            const int error = errno;
            name_.clear();
            errno = error;
            Fail("no file can be made in its folder");
        }
    }

    void Remove() {
        if (!name_.empty()) unlink(name_.c_str());
    }

    std::string target_;
    std::string name_;  ///< empty when there is nothing to remove
    StdioFile stream_;
};

WholeFile::WholeFile(const std::string& path) : file_(std::make_unique<PassingFile>(path)) {}
WholeFile::~WholeFile() = default;

std::FILE* WholeFile::Stream() const {
    return file_->Stream();
}

void WholeFile::Finish() {
    file_->Finish();
}
