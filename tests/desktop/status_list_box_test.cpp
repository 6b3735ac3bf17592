#include "desktop/status_list_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/resource.h"

namespace {

// A list box like that of the main dialog, three lines high.
class StatusList3 : public testing::Test {
protected:
    StatusList3()
        : window_(CreateWindowExW(0, L"LISTBOX", L"",
                                  WS_POPUP | WS_VISIBLE | LBS_NOSEL | LBS_NOINTEGRALHEIGHT, 0, 0,
                                  200, 50, nullptr, nullptr, nullptr, nullptr)) {
        SendMessageW(window_, LB_SETITEMHEIGHT, 0, 16);
        list_.Attach(window_);
    }
    ~StatusList3() override { DestroyWindow(window_); }

    std::vector<std::wstring> Lines() const {
        std::vector<std::wstring> lines;
        const auto count = SendMessageW(window_, LB_GETCOUNT, 0, 0);
        for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
            wchar_t text[200];
            SendMessageW(window_, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
            lines.emplace_back(text);
        }
        return lines;
    }

    HWND window_;
    StatusListBox list_;
};

}  // namespace

TEST_F(StatusList3, ShowsLinesInTheOrderAdded) {
    list_.Append(StatusText::kSavingOutput);
    list_.Append(StatusText::kCalculationComplete);
    list_.AppendText(IDS_NO_RESULT_FILE);
    EXPECT_EQ((std::vector<std::wstring>{L"Saving output...", L"Calculation Complete",
                                         L"No result file exist!"}),
              Lines());
}

TEST_F(StatusList3, IsEmptyAfterClear) {
    list_.Append(StatusText::kSavingOutput);
    list_.Append(StatusText::kCalculationComplete);
    list_.Clear();
    EXPECT_TRUE(Lines().empty());
}

TEST_F(StatusList3, KeepsTheNewestLineInView) {
    for (int i = 0; i < 10; ++i)
        list_.Append(StatusText::kFinishes);
    RECT newest, client;
    SendMessageW(window_, LB_GETITEMRECT, 9, reinterpret_cast<LPARAM>(&newest));
    GetClientRect(window_, &client);
    EXPECT_LE(newest.bottom, client.bottom);
    EXPECT_GE(newest.top, 0);
}

TEST_F(StatusList3, HasNothingLeftToPaintAfterEachLine) {
    for (int i = 0; i < 5; ++i) {
        list_.Append(StatusText::kFinishes);
        EXPECT_FALSE(GetUpdateRect(window_, nullptr, FALSE)) << "line " << i;
    }
}
