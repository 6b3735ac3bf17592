#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/real_windows/desktop_probe.h"

/// A window that the tool has opened above its dialog: a message box, the About box, a file
/// dialog.
class Popup {
public:
    explicit Popup(HWND window) : window_(window) {}

    HWND Window() const { return window_; }
    std::wstring Caption() const;

    /// The descendant of this identifier and window class; null without one.
    HWND Control(int id, const std::wstring& windowClass) const;

    HWND Button(int id) const { return Control(id, L"Button"); }

    /// The text of a message box.
    std::wstring Message() const;

    /// Presses a button and returns when the window has gone.
    void Press(int button) const;

    /// Types a path into a file dialog and presses its Open button. Returns when it has gone.
    void Choose(const std::filesystem::path& path) const;

private:
    HWND window_;
};

/// Quarnel.exe in a process of its own, worked by window messages as a user works it.
///
/// Waits for whatever it asks for and throws std::runtime_error when it does not come. The process
/// is ended with this object at the latest.
class RunningTool {
public:
    /// Starts the tool in `folder`, its current directory.
    explicit RunningTool(const std::filesystem::path& folder);
    ~RunningTool();
    RunningTool(const RunningTool&) = delete;
    RunningTool& operator=(const RunningTool&) = delete;

    HWND Dialog() const { return dialog_; }
    HWND Control(int id) const { return GetDlgItem(dialog_, id); }

    /// The control's place in the dialog's client area, pixels.
    RECT PlaceOf(HWND control) const;
    HWND Focus() const;

    std::wstring CurrentInput() const;
    std::vector<std::wstring> StatusLines() const;

    /// Chooses a menu command. Returns when it has been carried out, or has opened a window.
    void Command(int id);

    /// Clicks a button of the dialog. Returns as Command does.
    void Click(int button);

    /// Presses a key on the control that has the focus. Returns as Command does.
    void Key(WPARAM key);

    /// Posts a message to the dialog. Returns as Command does.
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    /// The window that is open above the dialog.
    Popup WaitForPopup() const;
    bool HasPopup() const;

    /// Loads an input file by the menu and the file dialog.
    void LoadInput(const std::filesystem::path& path);

    /// Clicks Compute and waits until the status list ends with `lastLine`.
    void Compute(const std::wstring& lastLine);

    bool HasEnded() const;

    /// Waits for the end of the process; its exit code.
    DWORD WaitForEnd() const;

    /// Asks the probe in the tool's process. `rectangle` and `window` are what the question needs.
    const ProbeExchange& Ask(ProbeQuestion question, RECT rectangle = {}, HWND window = nullptr);

    std::wstring Notes() const { return exchange_->notes; }

private:
    void Start(const std::filesystem::path& folder);
    void InstallProbe();
    void Settle();

    PROCESS_INFORMATION process_{};
    HWND dialog_ = nullptr;
    HANDLE mapping_ = nullptr;
    ProbeExchange* exchange_ = nullptr;
    HANDLE reached_ = nullptr;
    HMODULE probe_ = nullptr;
    HHOOK sentHook_ = nullptr;
    HHOOK takenHook_ = nullptr;
};

/// The folder of the running test program: beside it are the helpers, and in ../bin the tool.
std::filesystem::path TestProgramFolder();

/// The text of a window of another process.
std::wstring TextOfWindow(HWND window);
