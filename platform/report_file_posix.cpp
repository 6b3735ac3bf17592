#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include "platform/mode_of_new_files.h"
#include "platform/regular_file.h"
#include "platform/report_file.h"

namespace {

// A descriptor that is closed with its owner.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    void Abandon() { number_ = -1; }

private:
    int number_;
};

bool IsAnotherKind(const std::string& path) {
    const FileKind kind = FileKindOf(path);
    return kind == FileKind::kFolder || kind == FileKind::kOther;
}

// False when the file was removed or replaced after it was opened.
bool StillStandsAt(const std::string& path, const struct stat& opened) {
    struct stat now {};
    return stat(path.c_str(), &now) == 0 && now.st_dev == opened.st_dev &&
           now.st_ino == opened.st_ino;
}

// One attempt; no value when the file was replaced meanwhile.
std::optional<OpenedReport> TryToOpen(const std::string& path) {
    if (IsAnotherKind(path)) return OpenedReport{nullptr, ReportOpening::kNotAFile};
    // Not waiting, should a pipe have come there in between; and not emptied by being opened.
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                         kModeOfNewFiles));
    if (file.number() < 0) return OpenedReport{nullptr, ReportOpening::kRefused};
    struct stat opened {};
    if (fstat(file.number(), &opened) != 0) return OpenedReport{nullptr, ReportOpening::kRefused};
    if (!S_ISREG(opened.st_mode)) return OpenedReport{nullptr, ReportOpening::kNotAFile};
    if (flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return OpenedReport{nullptr, ReportOpening::kHeld};
    if (!StillStandsAt(path, opened)) return std::nullopt;
    if (ftruncate(file.number(), 0) != 0) return OpenedReport{nullptr, ReportOpening::kRefused};
    std::FILE* const stream = fdopen(file.number(), "w");
    if (stream == nullptr) return OpenedReport{nullptr, ReportOpening::kRefused};
    file.Abandon();
    return OpenedReport{stream, ReportOpening::kOpen};
}

}  // namespace

OpenedReport OpenReport(const std::string& path) {
    // A file that is replaced every time it is opened has somebody at work on it.
    constexpr int kMostAttempts = 10;
    for (int attempt = 0; attempt < kMostAttempts; ++attempt)
        if (const std::optional<OpenedReport> report = TryToOpen(path)) return *report;
    return {nullptr, ReportOpening::kHeld};
}

void ReleaseReport(std::FILE* stream) {
    std::fflush(stream);
    flock(fileno(stream), LOCK_UN);
}
