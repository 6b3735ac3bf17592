#include "samplehost/stop_window.h"

#include <stdexcept>
#include <utility>

namespace {

constexpr const wchar_t* kWindowClass = L"Quarnel.SampleHost";

}  // namespace

StopWindow::StopWindow(std::function<void()> stop) : stop_(std::move(stop)) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExW(&windowClass);
    // A top-level window, not a message-only one: those are not told that the session ends.
    window_ = CreateWindowExW(0, kWindowClass, L"SampleHost", WS_OVERLAPPED, 0, 0, 0, 0, nullptr,
                              nullptr, windowClass.hInstance, nullptr);
    if (window_ == nullptr) throw std::runtime_error("no window can be made on this desktop");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

StopWindow::~StopWindow() {
    DestroyWindow(window_);
    UnregisterClassW(kWindowClass, GetModuleHandleW(nullptr));
}

void StopWindow::RunUntilStopped() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

HWND StopWindow::FindRunning() {
    return FindWindowW(kWindowClass, nullptr);
}

void StopWindow::AskToStop() {
    const HWND window = FindRunning();
    if (window != nullptr) PostMessageW(window, WM_CLOSE, 0, 0);
}

void StopWindow::Stop() {
    if (const auto stop = std::exchange(stop_, nullptr)) stop();
    PostQuitMessage(0);
}

LRESULT CALLBACK StopWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<StopWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const bool sessionEnds = message == WM_ENDSESSION && wParam != FALSE;
    if (self != nullptr && (message == WM_CLOSE || sessionEnds)) {
        self->Stop();
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}
