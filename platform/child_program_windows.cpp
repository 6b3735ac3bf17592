#include <windows.h>

#include <memory>

#include "platform/child_program.h"
#include "platform/narrow_text.h"
#include "platform/native_path.h"
#include "platform/system_error.h"

namespace {

struct CloseTheHandle {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, CloseTheHandle>;

// A word of a command line, so that the program's C library gives it back as it is: backslashes
// count only before a quotation mark.
std::wstring Quoted(const std::wstring& word) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : word) {
        if (character == L'\\') {
            ++backslashes;
            continue;
        }
        quoted.append(character == L'"' ? 2 * backslashes + 1 : backslashes, L'\\');
        backslashes = 0;
        quoted += character;
    }
    quoted.append(2 * backslashes, L'\\');
    return quoted + L"\"";
}

OwnedHandle OpenForChild(const std::wstring& path, DWORD access, DWORD creation) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE handle = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      &inherited, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) throw ChildProgramError(SystemErrorText(GetLastError()));
    return OwnedHandle(handle);
}

// The handles that a child inherits, and no others: children are started on several threads.
class InheritedHandles {
public:
    explicit InheritedHandles(std::vector<HANDLE> handles)
        : handles_(std::move(handles)),
          room_(SizeOfList()),
          list_(reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(room_.data())) {
        SIZE_T size = room_.size();
        if (InitializeProcThreadAttributeList(list_, 1, 0, &size) == FALSE)
            throw ChildProgramError(SystemErrorText(GetLastError()));
        UpdateProcThreadAttribute(list_, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                                  handles_.size() * sizeof(HANDLE), nullptr, nullptr);
    }
    ~InheritedHandles() { DeleteProcThreadAttributeList(list_); }
    InheritedHandles(const InheritedHandles&) = delete;
    InheritedHandles& operator=(const InheritedHandles&) = delete;

    LPPROC_THREAD_ATTRIBUTE_LIST List() const { return list_; }

private:
    static SIZE_T SizeOfList() {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        return size;
    }

    std::vector<HANDLE> handles_;
    std::vector<char> room_;
    LPPROC_THREAD_ATTRIBUTE_LIST list_;
};

}  // namespace

ProgramEnd RunChildProgram(const std::string& program, const std::vector<std::string>& arguments,
                           const std::string& outputPath) {
    const std::wstring path = WideText(program);
    std::wstring commandLine = Quoted(path);
    for (const std::string& argument : arguments)
        commandLine += L" " + Quoted(WideText(argument));
    const OwnedHandle input = OpenForChild(L"NUL", GENERIC_READ, OPEN_EXISTING);
    const OwnedHandle output = OpenForChild(WideText(outputPath), GENERIC_WRITE, CREATE_ALWAYS);
    const InheritedHandles inherited({input.get(), output.get()});
    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdInput = input.get();
    startup.StartupInfo.hStdOutput = output.get();
    startup.StartupInfo.hStdError = output.get();
    startup.lpAttributeList = inherited.List();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                       EXTENDED_STARTUPINFO_PRESENT | CREATE_NO_WINDOW, nullptr, nullptr,
                       &startup.StartupInfo, &process) == FALSE)
        throw ChildProgramError(SystemErrorText(GetLastError()));
    const OwnedHandle thread(process.hThread);
    const OwnedHandle owned(process.hProcess);
    WaitForSingleObject(owned.get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(owned.get(), &exitCode);
    return {static_cast<int>(exitCode), 0};
}

std::string OwnProgramPath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return {};
        if (length < path.size()) return NarrowText(path.substr(0, length).c_str());
        path.resize(path.size() * 2);
    }
}
