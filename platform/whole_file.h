#pragma once

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

/// A file that cannot be written. The text is one line without the file's name.
class WholeFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that comes to be whole or not at all. What stood there stays as it was until the last
/// byte is on the disk; what goes wrong before leaves nothing behind.
///
/// Written under a new name in the same folder, which nobody can know beforehand, and then put in
/// place of the old file in one step. A link keeps leading to the file that it leads to; the file
/// keeps its permissions. What is not a regular file, or may not be written, is not replaced.
class WholeFile {
public:
    /// Creates the file under its passing name. Throws WholeFileError.
    explicit WholeFile(const std::string& path);

    /// Removes what was not put in place.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Takes bytes as they are. Write errors may go unnoticed until Finish.
    std::FILE* Stream() const;

    /// Puts the file in its place. Throws WholeFileError; what stands there is then what stood
    /// there before. To be called once, as the last thing.
    void Finish();

private:
    class PassingFile;
    std::unique_ptr<PassingFile> file_;
};

/// Writes `bytes` as a whole file. Throws WholeFileError.
void WriteWholeFile(const std::string& path, std::string_view bytes);

/// Throws WholeFileError when a whole file could not be put in place at `path`: to be called before
/// work that takes minutes. Changes nothing that stands there.
void RequireWholeFileCanBeWritten(const std::string& path);
