#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What a folder says of a file; nothing of a file that is not there.
struct FileFacts {
    std::optional<std::uintmax_t> size;   ///< bytes
    std::optional<std::string> modified;  ///< by the user's clock, "2026-11-21 20:24:05"
};
FileFacts FactsOfFile(const std::string& path);
