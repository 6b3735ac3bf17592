#pragma once

#include <windows.h>

#include <optional>

/// A modal dialog made from a template of the program's resources.
///
/// OK and Cancel close it unless a derived dialog handles them. What a handler throws is shown in
/// a message box, and the dialog goes on.
class ModalDialog {
public:
    explicit ModalDialog(int templateId) : templateId_(templateId) {}
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;
    virtual ~ModalDialog() = default;

    /// Shows the dialog and returns when it has closed. `owner` is disabled meanwhile; null when
    /// there is none. Throws std::runtime_error when the dialog cannot be made.
    void DoModal(HWND owner);

    /// The window; null before DoModal and after it.
    HWND Window() const noexcept { return window_; }

protected:
    /// The controls are there, nothing is shown yet. Afterwards the dialog manager gives the focus
    /// to the first control of the tab order.
    virtual void OnInitDialog() {}

    /// A menu item or button. True when it was handled.
    virtual bool OnCommand(int /*id*/) { return false; }

    /// Any other message. Its result when it was handled, nothing for the default processing.
    virtual std::optional<LRESULT> OnMessage(UINT /*message*/, WPARAM /*wParam*/,
                                             LPARAM /*lParam*/) {
        return std::nullopt;
    }

private:
    static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
    INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR HandleCommand(WPARAM wParam);
    void CenterOverOwner();

    int templateId_;
    HWND window_ = nullptr;
};
