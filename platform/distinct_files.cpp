#include "platform/distinct_files.h"

#include <cstddef>

namespace {

using Use = NamedFile::Use;

std::string NameOf(const NamedFile& file) {
    return file.path.empty() ? file.what : file.what + " " + file.path;
}

std::string DescribeOverwriting(const NamedFile& written, const NamedFile& read) {
    return NameOf(written) + " is the same file as " + NameOf(read) + ": " + read.what +
           " would be overwritten";
}

std::string DescribeCollision(const NamedFile& a, const NamedFile& b) {
    if (a.use == Use::kRead) return DescribeOverwriting(b, a);
    if (b.use == Use::kRead) return DescribeOverwriting(a, b);
    return NameOf(a) + " and " + NameOf(b) + " are the same file: one would overwrite the other";
}

}  // namespace

std::vector<NamedFile> StandardOutputFiles() {
    const auto output = IdentityOfStandardStream(1);
    const auto errors = IdentityOfStandardStream(2);
    std::vector<NamedFile> files;
    if (output) files.push_back({"standard output", {}, Use::kWritten, output});
    if (errors && errors != output) files.push_back({"standard error", {}, Use::kWritten, errors});
    return files;
}

std::optional<std::string> WhyFilesCollide(const std::vector<NamedFile>& files) {
    std::vector<std::optional<FileIdentity>> identities;
    identities.reserve(files.size());
    for (const NamedFile& file : files)
        identities.push_back(file.identity ? file.identity : IdentityOf(file.path));
    for (std::size_t j = 1; j < files.size(); ++j) {
        for (std::size_t i = 0; i < j; ++i) {
            const bool isRead = files[i].use == Use::kRead && files[j].use == Use::kRead;
            if (!isRead && identities[i] && identities[i] == identities[j])
                return DescribeCollision(files[i], files[j]);
        }
    }
    return std::nullopt;
}
