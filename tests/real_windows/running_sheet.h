#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/real_windows/running_tool.h"

/// QuarnelSheet.exe in a process of its own, worked by window messages as a user works it.
///
/// Waits for whatever it asks for and throws std::runtime_error when it does not come. The process
/// is ended with this object at the latest.
class RunningSheet {
public:
    /// Starts the program with these arguments in `folder`, its current directory.
    RunningSheet(const std::filesystem::path& folder, const std::vector<std::wstring>& arguments);
    ~RunningSheet();
    RunningSheet(const RunningSheet&) = delete;
    RunningSheet& operator=(const RunningSheet&) = delete;

    HWND Window() const { return window_; }
    HWND Control(int id) const { return GetDlgItem(window_, id); }
    HWND Focus() const;

    std::wstring Text(int id) const { return TextOfWindow(Control(id)); }
    std::wstring Title() const { return TextOfWindow(window_); }
    bool IsShown(int id) const { return IsWindowVisible(Control(id)) != FALSE; }

    /// Clicks a button; does not wait for anything.
    void Click(int button) const { PostMessageW(Control(button), BM_CLICK, 0, 0); }

    /// Presses a key on the control that has the focus.
    void Key(WPARAM key) const;

    /// Drops files on the window.
    void Drop(const std::vector<std::filesystem::path>& files) const;

    /// Waits until `condition` holds when the window has shown all of what it has begun to show:
    /// its controls change one after the other, and a glance may fall between two of them.
    void WaitUntil(const std::string& what, const std::function<bool()>& condition) const;

    /// Waits for a text in what a control shows.
    void WaitForText(int id, const std::wstring& part) const;

    /// Waits until a control is seen.
    void WaitForControl(int id) const;

    /// The window that is open above this one.
    Popup WaitForPopup() const;

    void WaitForEnd() const;
    bool HasEnded() const;

private:
    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
};
