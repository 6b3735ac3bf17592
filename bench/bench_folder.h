#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

/// A folder for what is written while something is measured, removed at the end.
class BenchFolder {
public:
    BenchFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("quarnel-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~BenchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    std::string Path(const char* name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};
