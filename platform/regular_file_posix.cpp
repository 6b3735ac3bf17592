#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/regular_file.h"

FileKind FileKindOf(const std::string& path) {
    struct stat found {};
    if (stat(path.c_str(), &found) != 0) return FileKind::kNothing;
    if (S_ISREG(found.st_mode)) return FileKind::kRegular;
    return S_ISDIR(found.st_mode) ? FileKind::kFolder : FileKind::kOther;
}

StdioFile OpenRegularFile(const std::string& path, ReadMode /*mode*/) {
    // Looked at before it is opened: whoever writes into a pipe shall not find a reader that goes.
    if (FileKindOf(path) != FileKind::kRegular) return nullptr;
    // Without O_NONBLOCK, a pipe put there in between would be waited for.
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (file < 0) return nullptr;
    struct stat opened {};
    if (fstat(file, &opened) == 0 && S_ISREG(opened.st_mode))
        if (std::FILE* const stream = fdopen(file, "r")) return StdioFile(stream);
    close(file);
    return nullptr;
}

int ReadTextCharacter(std::FILE* file) {
    const int read = std::fgetc(file);
    if (read != '\r') return read;
    const int next = std::fgetc(file);
    if (next == '\n') return next;
    if (next != EOF) std::ungetc(next, file);
    return read;
}
