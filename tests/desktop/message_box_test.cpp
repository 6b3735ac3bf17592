#include "desktop/message_box.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include "host/host_queries.h"

namespace {

// What the message box that `show` opens says; it is closed with OK.
class SeenMessageBox {
public:
    explicit SeenMessageBox(const std::function<void()>& show) {
        seen_ = this;
        const HHOOK hook = SetWindowsHookExW(WH_CBT, AtActivation, nullptr, GetCurrentThreadId());
        show();
        UnhookWindowsHookEx(hook);
    }

    std::wstring caption, text;

private:
    static LRESULT CALLBACK AtActivation(int code, WPARAM window, LPARAM details) {
        if (code == HCBT_ACTIVATE) seen_->Read(reinterpret_cast<HWND>(window));
        return CallNextHookEx(nullptr, code, window, details);
    }

    void Read(HWND box) {
        wchar_t words[1000];
        GetWindowTextW(box, words, 1000);
        if (words[0] != 0) caption = words;
        for (HWND child = GetWindow(box, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            wchar_t name[32];
            GetClassNameW(child, name, 32);
            GetWindowTextW(child, words, 1000);
            if (std::wstring(name) == L"Static" && words[0] != 0) text = words;
        }
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    }

    static inline SeenMessageBox* seen_ = nullptr;
};

void Report(const std::function<void()>& fail) {
    try {
        fail();
    } catch (...) {
        ReportCurrentException(nullptr);
    }
}

}  // namespace

TEST(ShowMessageBox, BearsTheNameOfTheProgram) {
    const SeenMessageBox box([] { ShowMessageBox(nullptr, L"Words", MB_OK); });
    EXPECT_EQ(L"Quarnel", box.caption);
    EXPECT_EQ(L"Words", box.text);
}

TEST(ReportCurrentException, SaysWhatTheHostReported) {
    const SeenMessageBox box(
        [] { Report([] { throw HostCallError(-1, "The host refused \xE5\xBB\xBA."); }); });
    EXPECT_EQ(L"The host refused \u5EFA.", box.text);
}

TEST(ReportCurrentException, SaysThatThereIsNotEnoughMemory) {
    const SeenMessageBox box([] { Report([] { throw std::bad_alloc(); }); });
    EXPECT_EQ(L"Not enough memory to complete the operation.", box.text);
}

TEST(ReportCurrentException, KnowsAlsoWhatHasNoText) {
    const SeenMessageBox box([] { Report([] { throw 1; }); });
    EXPECT_EQ(L"The command failed for an unknown reason.", box.text);
}
