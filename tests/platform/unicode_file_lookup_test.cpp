// The tool's search for a file, with the tool's manifest.

#include "platform/file_lookup.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>

#include "platform/narrow_text.h"
#include "tests/support/test_folder.h"

namespace {

class UnicodeFileLookup : public testing::Test {
protected:
    std::filesystem::path PathOf(const std::wstring& name) const {
        return std::filesystem::path(folder_.Path("x")).parent_path() / name;
    }
    std::string NarrowPathOf(const std::wstring& name) const {
        return NarrowText(PathOf(name).c_str());
    }
    void Write(const std::wstring& name) const { std::ofstream(PathOf(name)) << "FIN\n"; }

    TestFolder folder_;
};

}  // namespace

TEST_F(UnicodeFileLookup, FindsAJapaneseName) {
    Write(L"\u5165\u529B.csv");
    EXPECT_TRUE(FileExists(NarrowPathOf(L"\u5165\u529B.csv")));
    EXPECT_FALSE(FileExists(NarrowPathOf(L"\u51FA\u529B.csv")));
}

TEST_F(UnicodeFileLookup, SeesAFileThatCannotBeOpened) {
    Write(L"locked.csv");
    const HANDLE user = CreateFileW(PathOf(L"locked.csv").c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_TRUE(FileExists(NarrowPathOf(L"locked.csv")));
    CloseHandle(user);
}
