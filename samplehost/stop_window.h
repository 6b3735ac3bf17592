#pragma once

#include <windows.h>

#include <functional>

/// An invisible window by which a SampleHost is found and told to end: by Ctrl+C, by the closing
/// of its console, by the Enter key, by another SampleHost with --stop, by the end of the session
/// or by any program that sends it WM_CLOSE. One per session of a user.
class StopWindow {
public:
    /// `stop` is called on this thread, once, when the end is asked for; afterwards RunUntilStopped
    /// returns. Throws std::runtime_error when the window cannot be made.
    explicit StopWindow(std::function<void()> stop);
    ~StopWindow();
    StopWindow(const StopWindow&) = delete;
    StopWindow& operator=(const StopWindow&) = delete;

    /// Lets calls of clients come in until the end is asked for.
    void RunUntilStopped();

    /// The window of a running SampleHost; null when there is none.
    static HWND FindRunning();

    /// Asks the running SampleHost to end. May be called on any thread and in any process.
    static void AskToStop();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    void Stop();

    std::function<void()> stop_;
    HWND window_ = nullptr;
};
