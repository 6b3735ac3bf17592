#include "tests/real_windows/running_tool.h"

#include <stdexcept>

#include "tests/real_windows/waiting.h"

namespace {

constexpr int kCurrentInputId = 1001;
constexpr int kStatusListId = 1002;
constexpr int kLoadCommand = 32773;
constexpr int kFileNameId = 0x47C;

// Calls `visit` with every top-level window of a process until it returns false.
template <typename Visit>
void VisitWindows(DWORD process, Visit visit) {
    struct Context {
        DWORD process;
        Visit& visit;
    } context{process, visit};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Context*>(parameter);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            return owner != wanted.process || wanted.visit(window);
        },
        reinterpret_cast<LPARAM>(&context));
}

HWND FindDialog(DWORD process) {
    HWND found = nullptr;
    VisitWindows(process, [&found](HWND window) {
        if (IsWindowVisible(window) && TextOfWindow(window) == L"Quarnel Design Tool") {
            found = window;
        }
        return found == nullptr;
    });
    return found;
}

HWND FindPopup(DWORD process, HWND dialog) {
    HWND found = nullptr;
    VisitWindows(process, [&found, dialog](HWND window) {
        const bool isPopup = window != dialog && IsWindowVisible(window) &&
                             GetWindow(window, GW_OWNER) == dialog && !TextOfWindow(window).empty();
        if (isPopup) found = window;
        return found == nullptr;
    });
    return found;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

}  // namespace

std::filesystem::path TestProgramFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

// GetWindowText does not reach into the controls of another process; the message does.
std::wstring TextOfWindow(HWND window) {
    std::wstring text(4096, L'\0');
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_NORMAL, 60000, &length);
    text.resize(length);
    return text;
}

std::wstring Popup::Caption() const {
    return TextOfWindow(window_);
}

HWND Popup::Control(int id, const std::wstring& windowClass) const {
    struct Context {
        int id;
        const std::wstring& windowClass;
        HWND found;
    } context{id, windowClass, nullptr};
    EnumChildWindows(
        window_,
        [](HWND child, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Context*>(parameter);
            if (GetDlgCtrlID(child) == wanted.id && ClassOf(child) == wanted.windowClass) {
                wanted.found = child;
            }
            return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&context));
    return context.found;
}

std::wstring Popup::Message() const {
    std::wstring message;
    for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (ClassOf(child) == L"Static") message += TextOfWindow(child);
    }
    return message;
}

void Popup::Press(int button) const {
    PostMessageW(Control(button, L"Button"), BM_CLICK, 0, 0);
    WaitFor("a window to close", [this] { return !IsWindowVisible(window_); });
}

void Popup::Choose(const std::filesystem::path& path) const {
    SendMessageW(Control(kFileNameId, L"Edit"), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(path.wstring().c_str()));
    Press(IDOK);
}

RunningTool::RunningTool(const std::filesystem::path& folder) {
    Start(folder);
    InstallProbe();
}

void RunningTool::Start(const std::filesystem::path& folder) {
    const std::filesystem::path tool = TestProgramFolder().parent_path() / "bin" / "Quarnel.exe";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    if (!CreateProcessW(tool.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                        &startup, &process_)) {
        throw std::runtime_error("cannot start " + tool.string());
    }
    WaitFor("the main dialog", [this] {
        dialog_ = FindDialog(process_.dwProcessId);
        return dialog_ != nullptr;
    });
}

void RunningTool::InstallProbe() {
    wchar_t name[64];
    ProbeSharedName(process_.dwProcessId, name);
    mapping_ = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                  sizeof(ProbeExchange), name);
    exchange_ = static_cast<ProbeExchange*>(
        MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(ProbeExchange)));
    ProbeEventName(process_.dwProcessId, name);
    reached_ = CreateEventW(nullptr, FALSE, FALSE, name);

    probe_ = LoadLibraryW((TestProgramFolder() / "desktop_probe.dll").c_str());
    const auto hook = [this](const char* procedure, int kind) {
        const FARPROC address = GetProcAddress(probe_, procedure);
        return SetWindowsHookExW(kind, reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(address)),
                                 probe_, process_.dwThreadId);
    };
    sentHook_ = hook("ProbeSentMessage", WH_CALLWNDPROC);
    takenHook_ = hook("ProbeTakenMessage", WH_GETMESSAGE);
    if (sentHook_ == nullptr || takenHook_ == nullptr) {
        throw std::runtime_error("cannot hook the tool's thread");
    }
    Settle();
}

RunningTool::~RunningTool() {
    UnhookWindowsHookEx(sentHook_);
    UnhookWindowsHookEx(takenHook_);
    if (!HasEnded()) TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, INFINITE);
    FreeLibrary(probe_);
    UnmapViewOfFile(exchange_);
    for (const HANDLE handle : {mapping_, reached_, process_.hThread, process_.hProcess}) {
        CloseHandle(handle);
    }
}

RECT RunningTool::PlaceOf(HWND control) const {
    RECT place;
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

HWND RunningTool::Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(process_.dwThreadId, &info);
    return info.hwndFocus;
}

std::wstring RunningTool::CurrentInput() const {
    return TextOfWindow(Control(kCurrentInputId));
}

std::vector<std::wstring> RunningTool::StatusLines() const {
    const HWND list = Control(kStatusListId);
    std::vector<std::wstring> lines;
    const LRESULT count = SendMessageW(list, LB_GETCOUNT, 0, 0);
    for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
        wchar_t text[256] = L"";
        SendMessageW(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
        lines.emplace_back(text);
    }
    return lines;
}

// Posted messages keep their order: when the thread takes this one, it has done with the others or
// runs the loop of a window that they opened.
void RunningTool::Settle() {
    PostMessageW(dialog_, RegisterWindowMessageW(kProbeMessage), 0, 0);
    WaitFor("the tool to take its messages",
            [this] { return WaitForSingleObject(reached_, 0) == WAIT_OBJECT_0 || HasEnded(); });
}

void RunningTool::Post(UINT message, WPARAM wParam, LPARAM lParam) {
    PostMessageW(dialog_, message, wParam, lParam);
    Settle();
}

void RunningTool::Command(int id) {
    Post(WM_COMMAND, static_cast<WPARAM>(id));
}

void RunningTool::Click(int button) {
    PostMessageW(Control(button), BM_CLICK, 0, 0);
    Settle();
}

void RunningTool::Key(WPARAM key) {
    PostMessageW(Focus(), WM_KEYDOWN, key, 1);
    Settle();
}

Popup RunningTool::WaitForPopup() const {
    WaitFor("a window above the dialog", [this] { return HasPopup(); });
    return Popup(FindPopup(process_.dwProcessId, dialog_));
}

bool RunningTool::HasPopup() const {
    return FindPopup(process_.dwProcessId, dialog_) != nullptr;
}

void RunningTool::LoadInput(const std::filesystem::path& path) {
    Command(kLoadCommand);
    WaitForPopup().Choose(path);
    Settle();
}

void RunningTool::Compute(const std::wstring& lastLine) {
    Click(IDOK);
    WaitFor("the end of the run", [this, &lastLine] {
        const std::vector<std::wstring> lines = StatusLines();
        return !lines.empty() && lines.back() == lastLine;
    });
    Settle();
}

bool RunningTool::HasEnded() const {
    return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
}

DWORD RunningTool::WaitForEnd() const {
    WaitFor("the end of the tool", [this] { return HasEnded(); });
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

const ProbeExchange& RunningTool::Ask(ProbeQuestion question, RECT rectangle, HWND window) {
    exchange_->rectangle = rectangle;
    exchange_->window = window;
    exchange_->number = 0;
    exchange_->text[0] = 0;
    SendMessageW(dialog_, RegisterWindowMessageW(kProbeMessage), static_cast<WPARAM>(question), 0);
    return *exchange_;
}
