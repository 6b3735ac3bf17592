#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_identity.h"

/// A file that a command reads or writes.
struct NamedFile {
    enum class Use { kRead, kWritten };

    std::string what;  ///< how messages call it: "the input file"
    std::string path;  ///< empty: there is no such file, or it has no name here
    Use use = Use::kRead;

    /// Of a file that is known by something else than its path.
    std::optional<FileIdentity> identity = std::nullopt;
};

/// The files that standard output and standard error were sent to. The two may be one file: it is
/// then named once.
std::vector<NamedFile> StandardOutputFiles();

/// One sentence without a stop that names the first two files which are one and the same although
/// one of them is written, and says what would be lost; no value when there are none.
///
/// Files are the same by what their paths lead to, not by their names; files that do not exist yet,
/// by where they would come to stand. Nothing is opened for it that could be changed.
std::optional<std::string> WhyFilesCollide(const std::vector<NamedFile>& files);
