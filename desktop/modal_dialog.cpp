#include "desktop/modal_dialog.h"

#include <algorithm>
#include <stdexcept>

#include "desktop/message_box.h"

namespace {

// The part of the screen that a dialog of this owner may cover, without the task bar.
RECT WorkAreaAround(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork;
}

// Where a length starts that is centred on [low, high] and stays inside [least, most].
LONG CenteredStart(LONG low, LONG high, LONG length, LONG least, LONG most) {
    const LONG start = (low + high - length) / 2;
    return std::max(least, std::min(start, most - length));
}

}  // namespace

void ModalDialog::DoModal(HWND owner) {
    const INT_PTR result = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId_),
                                           owner, DialogProcedure, reinterpret_cast<LPARAM>(this));
    window_ = nullptr;
    if (result == -1) throw std::runtime_error("A dialog of the program could not be opened.");
}

INT_PTR CALLBACK ModalDialog::DialogProcedure(HWND window, UINT message, WPARAM wParam,
                                              LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* const dialog = reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) return FALSE;
    dialog->window_ = window;
    try {
        return dialog->Handle(message, wParam, lParam);
    } catch (...) {
        // No exception may pass through the system's own frames.
        ReportCurrentException(window);
        return TRUE;
    }
}

INT_PTR ModalDialog::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        OnInitDialog();
        CenterOverOwner();
        return TRUE;
    }
    if (const std::optional<LRESULT> result = OnMessage(message, wParam, lParam)) {
        // The one message used here whose result a dialog procedure returns by itself.
        if (message == WM_QUERYDRAGICON) return *result;
        SetWindowLongPtrW(window_, DWLP_MSGRESULT, *result);
        return TRUE;
    }
    return message == WM_COMMAND ? HandleCommand(wParam) : FALSE;
}

INT_PTR ModalDialog::HandleCommand(WPARAM wParam) {
    // 0 from menus and clicked buttons, 1 from accelerators; anything else is news of a control.
    if (HIWORD(wParam) > 1) return FALSE;
    const int id = LOWORD(wParam);
    if (OnCommand(id)) return TRUE;
    if (id != IDOK && id != IDCANCEL) return FALSE;
    EndDialog(window_, id);
    return TRUE;
}

void ModalDialog::CenterOverOwner() {
    const HWND owner = GetWindow(window_, GW_OWNER);
    const RECT area = WorkAreaAround(owner != nullptr ? owner : window_);
    RECT around = area;
    if (owner != nullptr) GetWindowRect(owner, &around);
    RECT own;
    GetWindowRect(window_, &own);
    SetWindowPos(
        window_, nullptr,
        CenteredStart(around.left, around.right, own.right - own.left, area.left, area.right),
        CenteredStart(around.top, around.bottom, own.bottom - own.top, area.top, area.bottom), 0, 0,
        SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
