#include "tests/real_windows/running_sheet.h"

#include <shlobj.h>

#include <cstring>
#include <stdexcept>

#include "platform/narrow_text.h"
#include "tests/real_windows/waiting.h"

namespace {

// The program's own window, or one above `owner`; null while there is none.
HWND FindWindowOf(DWORD process, HWND owner) {
    struct Context {
        DWORD process;
        HWND owner;
        HWND found;
    } context{process, owner, nullptr};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Context*>(parameter);
            DWORD of = 0;
            wchar_t kind[16] = L"";
            GetWindowThreadProcessId(window, &of);
            GetClassNameW(window, kind, 16);
            const bool isWanted = of == wanted.process && IsWindowVisible(window) &&
                                  std::wstring(kind) == L"#32770" &&
                                  GetWindow(window, GW_OWNER) == wanted.owner;
            if (isWanted) wanted.found = window;
            return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&context));
    return context.found;
}

// The memory of a drop: its header, the paths with a zero behind each, another zero.
std::string DropMemory(const std::vector<std::filesystem::path>& files) {
    std::wstring paths;
    for (const std::filesystem::path& file : files)
        paths += file.wstring() + L'\0';
    paths += L'\0';
    DROPFILES header{};
    header.pFiles = sizeof header;
    header.fWide = TRUE;
    std::string memory(sizeof header + paths.size() * sizeof(wchar_t), '\0');
    std::memcpy(memory.data(), &header, sizeof header);
    std::memcpy(memory.data() + sizeof header, paths.data(), paths.size() * sizeof(wchar_t));
    return memory;
}

}  // namespace

RunningSheet::RunningSheet(const std::filesystem::path& folder,
                           const std::vector<std::wstring>& arguments) {
    const std::filesystem::path program =
        TestProgramFolder().parent_path() / "bin" / "QuarnelSheet.exe";
    std::wstring commandLine = L"\"" + program.wstring() + L"\"";
    for (const std::wstring& argument : arguments)
        commandLine += L" \"" + argument + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.c_str(), &startup, &process_))
        throw std::runtime_error("cannot start " + program.string());
    WaitFor("the window of QuarnelSheet", [this] {
        window_ = FindWindowOf(process_.dwProcessId, nullptr);
        return window_ != nullptr;
    });
}

RunningSheet::~RunningSheet() {
    if (!HasEnded()) TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, INFINITE);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

HWND RunningSheet::Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(process_.dwThreadId, &info);
    return info.hwndFocus;
}

void RunningSheet::Key(WPARAM key) const {
    PostMessageW(Focus(), WM_KEYDOWN, key, 1);
}

void RunningSheet::Drop(const std::vector<std::filesystem::path>& files) const {
    const std::string memory = DropMemory(files);
    void* const place = VirtualAllocEx(process_.hProcess, nullptr, memory.size(),
                                       MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    WriteProcessMemory(process_.hProcess, place, memory.data(), memory.size(), nullptr);
    PostMessageW(window_, WM_DROPFILES, reinterpret_cast<WPARAM>(place), 0);
}

// The window's thread answers this message between two others: what it has begun to show is then
// shown in whole.
void RunningSheet::WaitUntil(const std::string& what,
                             const std::function<bool()>& condition) const {
    WaitFor(what, [&] {
        if (!condition()) return false;
        SendMessageTimeoutW(window_, WM_NULL, 0, 0, SMTO_NORMAL, 60000, nullptr);
        return condition();
    });
}

// The text too is read between two messages.
void RunningSheet::WaitForText(int id, const std::wstring& part) const {
    try {
        WaitFor("a text", [&] { return Text(id).find(part) != std::wstring::npos || HasEnded(); });
    } catch (const std::runtime_error&) {
        throw std::runtime_error("waited in vain for '" + NarrowText(part.c_str()) + "' in '" +
                                 NarrowText(Text(id).c_str()) + "'");
    }
}

void RunningSheet::WaitForControl(int id) const {
    WaitUntil("control " + std::to_string(id), [&] { return IsShown(id); });
}

Popup RunningSheet::WaitForPopup() const {
    HWND popup = nullptr;
    WaitFor("a window above QuarnelSheet", [&] {
        popup = FindWindowOf(process_.dwProcessId, window_);
        return popup != nullptr;
    });
    return Popup(popup);
}

void RunningSheet::WaitForEnd() const {
    WaitFor("the end of QuarnelSheet", [this] { return HasEnded(); });
}

bool RunningSheet::HasEnded() const {
    return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
}
