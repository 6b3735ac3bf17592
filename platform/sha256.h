#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

/// SHA-256 of bytes that come piece by piece, by the system's own library. Throws
/// std::runtime_error where that library fails.
class Sha256 {
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void Add(std::span<const char> bytes);

    /// The digest of all bytes, to be asked for once: 64 lower-case hexadecimal digits.
    std::string Digest();

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// SHA-256 of a file's bytes; nothing when the file cannot be read to its end.
std::optional<std::string> Sha256OfFile(const std::string& path);

/// The digits in which a digest is written.
std::string HexText(std::span<const std::uint8_t> bytes);
