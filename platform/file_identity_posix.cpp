#include <sys/stat.h>

#include <filesystem>

#include "platform/file_identity.h"

namespace {

namespace fs = std::filesystem;

FileIdentity Numbered(const struct stat& found, std::string newName) {
    return {found.st_dev, {found.st_ino, 0}, std::move(newName)};
}

// Of a name that leads to nothing: where it stands, and what would be created there.
std::optional<FileIdentity> IdentityOfNewFile(const fs::path& path) {
    const std::string name = path.filename().string();
    if (name.empty() || name == "." || name == "..") return std::nullopt;
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    struct stat found {};
    if (stat(folder.c_str(), &found) != 0 || !S_ISDIR(found.st_mode)) return std::nullopt;
    return Numbered(found, name);
}

}  // namespace

std::string WithoutLinks(const std::string& path) {
    constexpr int kMostLinks = 40;  // as the system itself follows
    fs::path target = path;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(target, error)); ++i) {
        const fs::path next = fs::read_symlink(target, error);
        if (error) break;
        target = target.parent_path() / next;  // an absolute one replaces the folder
    }
    return target.string();
}

std::optional<FileIdentity> IdentityOf(const std::string& path) {
    struct stat found {};
    if (stat(path.c_str(), &found) == 0) return Numbered(found, {});
    return IdentityOfNewFile(WithoutLinks(path));
}

std::optional<FileIdentity> IdentityOfStandardStream(int number) {
    struct stat found {};
    if (fstat(number, &found) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
    return Numbered(found, {});
}
