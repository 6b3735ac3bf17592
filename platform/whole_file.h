#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>

#include "platform/stdio_file.h"

/// A file that could not be written; the text says why, without the file's name.
class WholeFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that is written whole or not at all: first beside its place, as `path`.part, then moved
/// there. What stands at its place stays until then, and for good when it is not finished.
class WholeFile {
public:
    /// Throws WholeFileError when the file beside it cannot be created.
    explicit WholeFile(const std::string& path);

    /// Removes what was written when it has not been finished.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Takes bytes as they are. Write errors may go unnoticed until Finish.
    std::FILE* stream() const { return file_.get(); }

    /// Puts the file in its place. Throws WholeFileError when something was not written or it
    /// cannot be put there.
    void Finish();

private:
    std::string path_;
    std::string temporary_;
    StdioFile file_;
    bool isFinished_ = false;
};
