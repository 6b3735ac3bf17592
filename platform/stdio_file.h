#pragma once

#include <cstdio>
#include <memory>
#include <string>

struct CloseStdioFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// A stream of the C library that is closed with its owner; null when it could not be opened.
using StdioFile = std::unique_ptr<std::FILE, CloseStdioFile>;

/// `mode` as for fopen.
inline StdioFile OpenStdioFile(const std::string& path, const char* mode) {
    return StdioFile(std::fopen(path.c_str(), mode));
}
