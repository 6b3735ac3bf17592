#include "desktop/modal_dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "app/about_dlg.h"
#include "desktop/resource.h"

namespace {

// The About box as a test wants it.
class TriedDialog : public ModalDialog {
public:
    TriedDialog() : ModalDialog(IDD_ABOUT) {}

    std::function<void(HWND)> onInit = [](HWND) {};
    std::function<bool(int)> onCommand = [](int) { return false; };

protected:
    void OnInitDialog() override { onInit(Window()); }
    bool OnCommand(int id) override { return onCommand(id); }
};

// The upper left corner that centres a window of this size over `around`.
POINT Centered(const RECT& around, const RECT& own) {
    return {(around.left + around.right - (own.right - own.left)) / 2,
            (around.top + around.bottom - (own.bottom - own.top)) / 2};
}

}  // namespace

TEST(ModalDialog, ClosesOnOk) {
    TriedDialog dialog;
    dialog.onInit = [](HWND window) { PostMessageW(window, WM_COMMAND, IDOK, 0); };
    dialog.DoModal(nullptr);
    EXPECT_EQ(nullptr, dialog.Window());
}

TEST(ModalDialog, ClosesOnCancel) {
    TriedDialog dialog;
    dialog.onInit = [](HWND window) { PostMessageW(window, WM_COMMAND, IDCANCEL, 0); };
    dialog.DoModal(nullptr);
    EXPECT_EQ(nullptr, dialog.Window());
}

TEST(ModalDialog, StaysOpenWhenItsOwnerHandlesOk) {
    TriedDialog dialog;
    int handled = 0;
    dialog.onCommand = [&](int id) { return id == IDOK && ++handled > 0; };
    dialog.onInit = [](HWND window) {
        PostMessageW(window, WM_COMMAND, IDOK, 0);
        PostMessageW(window, WM_COMMAND, IDOK, 0);
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    };
    dialog.DoModal(nullptr);
    EXPECT_EQ(2, handled);
}

TEST(ModalDialog, NewsOfAControlIsNoCommand) {
    TriedDialog dialog;
    int commands = 0;
    dialog.onCommand = [&](int) {
        ++commands;
        return false;
    };
    dialog.onInit = [](HWND window) {
        PostMessageW(window, WM_COMMAND, MAKEWPARAM(IDOK, BN_DOUBLECLICKED), 0);
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    };
    dialog.DoModal(nullptr);
    EXPECT_EQ(1, commands);
}

TEST(ModalDialog, StandsInTheMiddleOfTheScreenWithoutAnOwner) {
    RECT own{}, area{};
    TriedDialog dialog;
    dialog.onInit = [](HWND window) { PostMessageW(window, WM_COMMAND, IDCANCEL, 0); };
    dialog.onCommand = [&](int) {
        GetWindowRect(dialog.Window(), &own);
        return false;
    };
    dialog.DoModal(nullptr);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_EQ(Centered(area, own).x, own.left);
    EXPECT_EQ(Centered(area, own).y, own.top);
}

TEST(ModalDialog, StandsOverTheMiddleOfItsOwner) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 100, 100, 600, 400,
                                       nullptr, nullptr, nullptr, nullptr);
    const RECT around{100, 100, 700, 500};
    RECT own{};
    TriedDialog dialog;
    dialog.onInit = [](HWND window) { PostMessageW(window, WM_COMMAND, IDCANCEL, 0); };
    dialog.onCommand = [&](int) {
        GetWindowRect(dialog.Window(), &own);
        return false;
    };
    dialog.DoModal(owner);
    DestroyWindow(owner);
    EXPECT_EQ(Centered(around, own).x, own.left);
    EXPECT_EQ(Centered(around, own).y, own.top);
}

TEST(ModalDialog, IsMovedOntoTheScreenWhenItsOwnerIsAtTheEdge) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 20, 20,
                                       nullptr, nullptr, nullptr, nullptr);
    RECT own{};
    TriedDialog dialog;
    dialog.onInit = [](HWND window) { PostMessageW(window, WM_COMMAND, IDCANCEL, 0); };
    dialog.onCommand = [&](int) {
        GetWindowRect(dialog.Window(), &own);
        return false;
    };
    dialog.DoModal(owner);
    DestroyWindow(owner);
    EXPECT_EQ(0, own.left);
    EXPECT_EQ(0, own.top);
}
