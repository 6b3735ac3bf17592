#pragma once

#include <filesystem>
#include <optional>
#include <string>

/// While it lives, files of one extension are opened by the file opener of the tests, which notes
/// what it was given. What was registered before comes back afterwards.
class FileType {
public:
    /// `extension` with its dot; the note is kept in `folder`.
    FileType(const std::wstring& extension, const std::filesystem::path& folder);
    ~FileType();
    FileType(const FileType&) = delete;
    FileType& operator=(const FileType&) = delete;

    /// Waits for a file to be opened, and forgets the note. UTF-8.
    std::string TakeOpenedPath();

    bool HasOpened() const { return std::filesystem::exists(record_); }

private:
    std::wstring extension_;
    std::filesystem::path record_;
    std::optional<std::wstring> before_;
};

/// While it lives, files of one extension have no application.
class NoFileType {
public:
    explicit NoFileType(const std::wstring& extension);
    ~NoFileType();
    NoFileType(const NoFileType&) = delete;
    NoFileType& operator=(const NoFileType&) = delete;

private:
    std::wstring extension_;
    std::optional<std::wstring> before_;
};
