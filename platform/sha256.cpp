#include "platform/sha256.h"

#include <cstdio>
#include <vector>

std::string HexText(std::span<const std::uint8_t> bytes) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

std::optional<std::string> Sha256OfFile(const std::string& path) {
    constexpr std::size_t kBlock = 65536;
    const auto close = [](std::FILE* file) { std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(path.c_str(), "rb"), close);
    if (!file) return std::nullopt;
    Sha256 sha256;
    std::vector<char> block(kBlock);
    while (const std::size_t size = std::fread(block.data(), 1, kBlock, file.get()))
        sha256.Add({block.data(), size});
    if (std::ferror(file.get()) != 0) return std::nullopt;
    return sha256.Digest();
}
