// Stands in for the application of a file type: file_opener RECORD PATH writes PATH to RECORD.

#include <windows.h>

#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace {

std::string Utf8(const std::wstring& wide) {
    std::string narrow(wide.size() * 3 + 1, '\0');
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), narrow.data(),
                            static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(length));
    return narrow;
}

}  // namespace

int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*commandLine*/,
                   int /*showCommand*/) {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 3) return 2;
    // Written aside and moved, so that whoever waits for the record finds all of it.
    const std::filesystem::path record = arguments[1];
    std::filesystem::path unfinished = record;
    unfinished += L".part";
    std::ofstream(unfinished, std::ios::binary) << Utf8(arguments[2]);
    // A test that does not look at the record may have ended, and its folder be gone.
    std::error_code gone;
    std::filesystem::rename(unfinished, record, gone);
    LocalFree(arguments);
    return gone ? 1 : 0;
}
