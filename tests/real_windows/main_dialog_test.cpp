// The main dialog and the About box as the user finds them.

#include "tests/real_windows/desktop_fixture.h"
#include "tests/real_windows/waiting.h"

namespace {

class MainDialog : public DesktopTest {
protected:
    // Dialog units to pixels of this dialog. The dialog manager rounds place and size apart.
    RECT Pixels(int x, int y, int width, int height) {
        const RECT place = tool_.Ask(ProbeQuestion::kMapDialogRect, RECT{x, y, x, y}).rectangle;
        const RECT size =
            tool_.Ask(ProbeQuestion::kMapDialogRect, RECT{0, 0, width, height}).rectangle;
        return {place.left, place.top, place.left + size.right, place.top + size.bottom};
    }

    void ExpectPlace(HWND control, const RECT& expected) {
        const RECT place = tool_.PlaceOf(control);
        EXPECT_EQ(expected.left, place.left);
        EXPECT_EQ(expected.top, place.top);
        EXPECT_EQ(expected.right, place.right);
        EXPECT_EQ(expected.bottom, place.bottom);
    }

    HWND Label() { return FindWindowExW(tool_.Dialog(), nullptr, L"Static", L"Current Input:"); }

    LONG_PTR StyleOf(HWND window) { return GetWindowLongPtrW(window, GWL_STYLE); }

    std::vector<std::wstring> SystemMenu() {
        std::vector<std::wstring> items;
        std::wstring text = tool_.Ask(ProbeQuestion::kSystemMenu).text;
        for (std::size_t end; (end = text.find(L'\n')) != std::wstring::npos;) {
            items.push_back(text.substr(0, end));
            text.erase(0, end + 1);
        }
        return items;
    }

    void SendFocusTo(HWND control) {
        SendMessageW(tool_.Dialog(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    }
};

constexpr WPARAM kAbout = 16;

}  // namespace

TEST_F(MainDialog, ShowsThatNoInputIsSelected) {
    EXPECT_EQ(L"- None Selected -", tool_.CurrentInput());
}

TEST_F(MainDialog, StartsWithAnEmptyStatusList) {
    EXPECT_TRUE(tool_.StatusLines().empty());
}

TEST_F(MainDialog, HasTheSizeOfItsTemplate) {
    RECT client;
    GetClientRect(tool_.Dialog(), &client);
    const RECT expected = Pixels(0, 0, 241, 279);
    EXPECT_EQ(expected.right, client.right);
    EXPECT_EQ(expected.bottom, client.bottom);
}

TEST_F(MainDialog, HasItsControlsInTheirPlaces) {
    ExpectPlace(tool_.Control(kCompute), Pixels(186, 21, 50, 14));
    ExpectPlace(tool_.Control(kDone), Pixels(186, 261, 50, 14));
    ExpectPlace(Label(), Pixels(5, 5, 44, 8));
    ExpectPlace(tool_.Control(kCurrentInput), Pixels(59, 5, 178, 8));
    ExpectPlace(tool_.Control(kStatusList), Pixels(3, 41, 233, 215));
}

TEST_F(MainDialog, IsAPopUpWithCaptionSystemMenuAndFrameOnTheTaskBar) {
    const LONG_PTR wanted = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    EXPECT_EQ(wanted, StyleOf(tool_.Dialog()) & wanted);
    EXPECT_EQ(0, StyleOf(tool_.Dialog()) & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_THICKFRAME));
    EXPECT_NE(0, GetWindowLongPtrW(tool_.Dialog(), GWL_EXSTYLE) & WS_EX_APPWINDOW);
    EXPECT_EQ(nullptr, GetWindow(tool_.Dialog(), GW_OWNER));
}

TEST_F(MainDialog, HasPushButtonsInTheTabOrder) {
    for (const int button : {kCompute, kDone}) {
        EXPECT_NE(0, StyleOf(tool_.Control(button)) & WS_TABSTOP) << button;
    }
    EXPECT_EQ(L"Compute", TextOfWindow(tool_.Control(kCompute)));
    EXPECT_EQ(L"Done", TextOfWindow(tool_.Control(kDone)));
}

// The scroll bar itself comes and goes with the lines; the border may be a client edge.
TEST_F(MainDialog, HasAnUnsortedListWithoutSelection) {
    const HWND list = tool_.Control(kStatusList);
    const LONG_PTR listStyles = StyleOf(list) & 0xFFFF;
    EXPECT_EQ(LBS_NOTIFY | LBS_NOSEL | LBS_NOINTEGRALHEIGHT, listStyles);
    EXPECT_NE(0, StyleOf(list) & WS_TABSTOP);
    EXPECT_TRUE((StyleOf(list) & WS_BORDER) != 0 ||
                (GetWindowLongPtrW(list, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0);
}

TEST_F(MainDialog, LabelHasNoIdentifierOfItsOwn) {
    EXPECT_EQ(-1, GetDlgCtrlID(Label()));
}

TEST_F(MainDialog, GoesThroughItsControlsInTheOrderOfTheTemplate) {
    std::vector<int> order;
    for (HWND child = GetWindow(tool_.Dialog(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        order.push_back(GetDlgCtrlID(child));
    }
    EXPECT_EQ((std::vector<int>{kCompute, kDone, -1, kCurrentInput, kStatusList}), order);
}

TEST_F(MainDialog, GivesTheFirstFocusToCompute) {
    EXPECT_EQ(tool_.Control(kCompute), tool_.Focus());
}

TEST_F(MainDialog, TabGoesFromComputeToDoneToTheList) {
    tool_.Key(VK_TAB);
    EXPECT_EQ(tool_.Control(kDone), tool_.Focus());
    tool_.Key(VK_TAB);
    EXPECT_EQ(tool_.Control(kStatusList), tool_.Focus());
    tool_.Key(VK_TAB);
    EXPECT_EQ(tool_.Control(kCompute), tool_.Focus());
}

TEST_F(MainDialog, HasDoneAsItsDefaultButton) {
    const LRESULT answer = SendMessageW(tool_.Dialog(), DM_GETDEFID, 0, 0);
    EXPECT_EQ(DC_HASDEFID, HIWORD(answer));
    EXPECT_EQ(kDone, LOWORD(answer));
}

TEST_F(MainDialog, StandsInTheMiddleOfTheScreen) {
    RECT area, own;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    GetWindowRect(tool_.Dialog(), &own);
    EXPECT_EQ((area.left + area.right - (own.right - own.left)) / 2, own.left);
    EXPECT_EQ((area.top + area.bottom - (own.bottom - own.top)) / 2, own.top);
}

TEST_F(MainDialog, ShowsTheFileMenu) {
    EXPECT_STREQ(
        L"32773 Load Route 2 Input\n32771 Open Route 2 Input\n-\n32772 Create Route 2 Input\n-\n"
        L"32774 View Error Log\n32775 View Results\n-\n2 Exit\n",
        tool_.Ask(ProbeQuestion::kMenu).text);
}

TEST_F(MainDialog, HasTheProgramsIconLargeSmallAndForDragging) {
    EXPECT_EQ(3, tool_.Ask(ProbeQuestion::kIcons).number);
}

TEST_F(MainDialog, SystemMenuEndsWithARuleAndAbout) {
    const std::vector<std::wstring> items = SystemMenu();
    ASSERT_LE(2u, items.size());
    EXPECT_EQ(L"-", items[items.size() - 2]);
    EXPECT_EQ(L"16 &About Quarnel...", items.back());
}

TEST_F(MainDialog, SystemMenuHasAboutOnce) {
    EXPECT_EQ(1, std::ranges::count(SystemMenu(), L"16 &About Quarnel..."));
}

TEST_F(MainDialog, AboutOpensTheAboutBox) {
    tool_.Post(WM_SYSCOMMAND, kAbout);
    const Popup about = tool_.WaitForPopup();
    EXPECT_EQ(L"About Quarnel", about.Caption());
    EXPECT_THAT(about.Message(), testing::HasSubstr(L"Quarnel Version 1.0"));
    EXPECT_FALSE(IsWindowEnabled(tool_.Dialog()));
    about.Press(IDOK);
    EXPECT_TRUE(IsWindowEnabled(tool_.Dialog()));
}

// The system uses the lower four bits of a system command for itself.
TEST_F(MainDialog, AboutIsKnownWhateverTheLowerFourBits) {
    tool_.Post(WM_SYSCOMMAND, kAbout | 0xF);
    EXPECT_EQ(L"About Quarnel", tool_.WaitForPopup().Caption());
}

TEST_F(MainDialog, AboutBoxClosesOnEscape) {
    tool_.Post(WM_SYSCOMMAND, kAbout);
    const Popup about = tool_.WaitForPopup();
    tool_.Key(VK_ESCAPE);
    WaitFor("the About box to close", [&] { return !IsWindow(about.Window()); });
    EXPECT_FALSE(tool_.HasEnded());
}

// Windows shows a new dialog once more when its thread has nothing to do for the first time, and a
// minimised one is restored by that. One paint erases once, as soon as the window manager is done.
TEST_F(MainDialog, MinimisedItErasesAndDrawsItsIcon) {
    WaitFor("the minimised dialog to erase for its icon", [&] {
        if (IsIconic(tool_.Dialog()) == FALSE) ShowWindow(tool_.Dialog(), SW_MINIMIZE);
        tool_.Ask(ProbeQuestion::kClearNotes);
        SendMessageW(tool_.Dialog(), WM_PAINT, 0, 0);
        return tool_.Notes() == L"I";
    });
}

TEST_F(MainDialog, RestoredItPaintsAsADialog) {
    ShowWindow(tool_.Dialog(), SW_MINIMIZE);
    WaitFor("the dialog to be minimised", [&] { return IsIconic(tool_.Dialog()) != FALSE; });
    ShowWindow(tool_.Dialog(), SW_RESTORE);
    WaitFor("the dialog to be restored", [&] { return IsIconic(tool_.Dialog()) == FALSE; });
    tool_.Ask(ProbeQuestion::kClearNotes);
    SendMessageW(tool_.Dialog(), WM_PAINT, 0, 0);
    EXPECT_THAT(tool_.Notes(), testing::Not(testing::HasSubstr(L"I")));
}

TEST_F(MainDialog, DoneEndsTheProgram) {
    tool_.Click(kDone);
    EXPECT_EQ(0u, tool_.WaitForEnd());
}

TEST_F(MainDialog, ExitEndsTheProgram) {
    tool_.Command(kExit);
    EXPECT_EQ(0u, tool_.WaitForEnd());
}

TEST_F(MainDialog, EscapeEndsTheProgram) {
    tool_.Key(VK_ESCAPE);
    EXPECT_EQ(0u, tool_.WaitForEnd());
}

TEST_F(MainDialog, ClosingItsWindowEndsTheProgram) {
    tool_.Post(WM_SYSCOMMAND, SC_CLOSE);
    EXPECT_EQ(0u, tool_.WaitForEnd());
}

TEST_F(MainDialog, EnterOnTheListIsDone) {
    SendFocusTo(tool_.Control(kStatusList));
    tool_.Key(VK_RETURN);
    EXPECT_EQ(0u, tool_.WaitForEnd());
}

TEST_F(MainDialog, EnterOnComputeIsComputeOnceTabHasReachedIt) {
    for (int i = 0; i < 3; ++i)
        tool_.Key(VK_TAB);
    tool_.Key(VK_RETURN);
    EXPECT_EQ(Lines{L"Input not specified!"}, tool_.StatusLines());
}
