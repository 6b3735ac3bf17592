#pragma once

#include <filesystem>
#include <string>

/// A folder of one test's own, empty at first and removed with all that is in it at the end.
class TestFolder {
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string Path(const std::string& name) const { return (path_ / name).string(); }

    /// Writes a file byte for byte and gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const;

    /// The text of a file as a reader sees it: line ends of the platform read as "\n".
    std::string Read(const std::string& name) const;

    bool Has(const std::string& name) const { return std::filesystem::exists(path_ / name); }

private:
    std::filesystem::path path_;
};

/// The text of any file, line ends read as "\n".
std::string ReadText(const std::filesystem::path& path);
