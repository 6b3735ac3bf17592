#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

/// What a path leads to, whatever it is called: through links, `..`, other spellings of a name. Two
/// paths lead to the same file when their identities are equal.
struct FileIdentity {
    std::uint64_t volume = 0;

    /// The file's number on its volume; that of its folder when the file does not exist yet.
    std::array<std::uint64_t, 2> number{};

    /// The name that a file which does not exist yet would get, as the platform compares names.
    std::string newName;

    bool operator==(const FileIdentity&) const = default;
};

/// No value for a path to which no file can ever belong: an empty one, one into a folder that does
/// not exist. Opens nothing but folders and, on Windows, what is needed to look at a file.
std::optional<FileIdentity> IdentityOf(const std::string& path);

/// The path of the file itself when `path` is a link to it, or a link to a link; otherwise `path`.
/// The file need not exist.
std::string WithoutLinks(const std::string& path);

/// Of the file that standard output (1) or standard error (2) was sent to by whoever started the
/// program; no value for a terminal, a pipe or a device.
std::optional<FileIdentity> IdentityOfStandardStream(int number);
