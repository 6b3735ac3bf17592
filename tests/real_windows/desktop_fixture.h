#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/real_windows/file_type.h"
#include "tests/real_windows/running_tool.h"

// What the menu items and buttons of the dialog send.
inline constexpr int kOpenInput = 32771;
inline constexpr int kCreateInput = 32772;
inline constexpr int kLoadInput = 32773;
inline constexpr int kViewLog = 32774;
inline constexpr int kViewResults = 32775;
inline constexpr int kCompute = IDOK;
inline constexpr int kDone = IDCANCEL;
inline constexpr int kExit = IDCANCEL;

inline constexpr int kCurrentInput = 1001;
inline constexpr int kStatusList = 1002;

/// A folder of its own for each test, gone afterwards. Its name has Japanese and other characters
/// that no single-byte code page holds together. The time is in it, because what a test before
/// started may still write, and processes get the numbers of those that have ended.
class UnicodeFolder {
public:
    UnicodeFolder()
        : path_(std::filesystem::temp_directory_path() /
                (L"quarnel \u5EFA\u7269 \u0142 & " + std::to_wstring(GetCurrentProcessId()) + L" " +
                 std::to_wstring(GetTickCount64()))) {
        std::filesystem::create_directories(path_);
    }
    ~UnicodeFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    UnicodeFolder(const UnicodeFolder&) = delete;
    UnicodeFolder& operator=(const UnicodeFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    std::filesystem::path Write(const std::wstring& name, const std::string& content) const {
        const std::filesystem::path path = path_ / name;
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

private:
    std::filesystem::path path_;
};

inline std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The path as the opener of the tests notes it.
inline std::string Utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

using Lines = std::vector<std::wstring>;

/// The tool in a folder of its own, with applications for .csv and .txt files.
class DesktopTest : public testing::Test {
protected:
    UnicodeFolder folder_;
    FileType csv_{L".csv", folder_.Path()};
    FileType txt_{L".txt", folder_.Path()};
    RunningTool tool_{folder_.Path()};
};
