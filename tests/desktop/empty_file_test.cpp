#include "desktop/empty_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "platform/narrow_text.h"

namespace {

// A folder of its own for each test, gone afterwards.
class EmptyFile : public testing::Test {
protected:
    EmptyFile() { std::filesystem::create_directories(folder_); }
    ~EmptyFile() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        (L"quarnel-empty-file-" + std::to_wstring(GetCurrentProcessId()));
};

std::string FailureOf(const std::wstring& path) {
    try {
        CreateEmptyFile(path);
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
    return "no failure";
}

}  // namespace

TEST_F(EmptyFile, IsMadeUnderAJapaneseName) {
    const std::filesystem::path path = folder_ / L"\u5165\u529B.csv";
    CreateEmptyFile(path.wstring());
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(0u, std::filesystem::file_size(path));
}

TEST_F(EmptyFile, LosesWhatItHeld) {
    const std::filesystem::path path = folder_ / L"full.csv";
    std::ofstream(path) << "FIN\n";
    CreateEmptyFile(path.wstring());
    EXPECT_EQ(0u, std::filesystem::file_size(path));
}

TEST_F(EmptyFile, IsClosedAgain) {
    const std::filesystem::path path = folder_ / L"closed.csv";
    CreateEmptyFile(path.wstring());
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}

TEST_F(EmptyFile, FailureNamesTheFileAndTheSystemsReason) {
    const std::wstring path = (folder_ / L"missing" / L"a.csv").wstring();
    wchar_t reason[256];
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_PATH_NOT_FOUND, 0, reason, 256,
                   nullptr);
    EXPECT_THAT(FailureOf(path), testing::HasSubstr(NarrowText(path.c_str())));
    EXPECT_THAT(FailureOf(path), testing::HasSubstr(NarrowText(reason)));
}

TEST_F(EmptyFile, AFileThatIsInUseKeepsItsContent) {
    const std::filesystem::path path = folder_ / L"open.csv";
    std::ofstream(path) << "FIN\n";
    const HANDLE user = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_THAT(FailureOf(path.wstring()), testing::HasSubstr("open.csv"));
    CloseHandle(user);
    EXPECT_LT(0u, std::filesystem::file_size(path));
}

// 40 folders of 10 characters: longer than the 260 characters that Windows takes without more ado.
TEST_F(EmptyFile, APathThatIsTooLongIsRefusedNotCut) {
    std::wstring path = folder_.wstring();
    for (int i = 0; i < 40; ++i)
        path += L"\\123456789";
    EXPECT_THAT(FailureOf(path + L"\\a.csv"), testing::HasSubstr("123456789\\a.csv"));
}
