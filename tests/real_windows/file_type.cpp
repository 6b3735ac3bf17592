#include "tests/real_windows/file_type.h"

#include <windows.h>

#include <fstream>
#include <iterator>

#include "tests/real_windows/running_tool.h"
#include "tests/real_windows/waiting.h"

namespace {

// The default value of a key among the registered file types.
std::optional<std::wstring> RegisteredValue(const std::wstring& key) {
    wchar_t value[1024];
    DWORD size = sizeof(value);
    if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value,
                     &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return value;
}

void Register(const std::wstring& key, const std::wstring& value) {
    RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

void RegisterOrForget(const std::wstring& key, const std::optional<std::wstring>& value) {
    if (value) {
        Register(key, *value);
    } else {
        RegDeleteKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr);
    }
}

std::wstring TypeName(const std::wstring& extension) {
    return L"QuarnelTest" + extension;
}

std::wstring Quoted(const std::filesystem::path& path) {
    return L"\"" + path.wstring() + L"\"";
}

}  // namespace

FileType::FileType(const std::wstring& extension, const std::filesystem::path& folder)
    : extension_(extension),
      record_(folder / (L"opened" + extension + L".record")),
      before_(RegisteredValue(extension)) {
    const std::filesystem::path opener = TestProgramFolder() / "file_opener.exe";
    Register(TypeName(extension) + L"\\shell\\open\\command",
             Quoted(opener) + L" " + Quoted(record_) + L" \"%1\"");
    Register(extension, TypeName(extension));
}

FileType::~FileType() {
    RegDeleteTreeW(HKEY_CLASSES_ROOT, TypeName(extension_).c_str());
    RegisterOrForget(extension_, before_);
}

// The record cannot be read or removed while the opener's hold on it lasts.
std::string FileType::TakeOpenedPath() {
    std::string path;
    WaitFor("a file to be opened", [this, &path] {
        std::ifstream record(record_, std::ios::binary);
        path.assign(std::istreambuf_iterator<char>(record), {});
        return !path.empty();
    });
    WaitFor("the record to be let go", [this] { return DeleteFileW(record_.c_str()) != FALSE; });
    return path;
}

NoFileType::NoFileType(const std::wstring& extension)
    : extension_(extension), before_(RegisteredValue(extension)) {
    RegisterOrForget(extension, std::nullopt);
}

NoFileType::~NoFileType() {
    RegisterOrForget(extension_, before_);
}
