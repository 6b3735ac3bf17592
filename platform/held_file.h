#pragma once

#include <string>

/// Keeps a file as it is for as long as this lives: others may read it, but neither write, replace
/// nor remove it. Does nothing for a file that cannot be opened.
class HeldFile {
public:
    explicit HeldFile(const std::string& path);
    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    void* handle_;
};
