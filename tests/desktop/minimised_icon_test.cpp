#include "desktop/minimised_icon.h"

#include <gtest/gtest.h>

#include "desktop/resource.h"

namespace {

constexpr int kSide = 100;

// A square picture in memory, black at first.
class Picture {
public:
    Picture() : device_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = kSide;
        info.bmiHeader.biHeight = -kSide;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(device_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        previous_ = SelectObject(device_, bitmap_);
    }
    ~Picture() {
        SelectObject(device_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(device_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC Device() const { return device_; }

    // The smallest rectangle around everything that is not black.
    RECT Drawn() const {
        RECT drawn{kSide, kSide, 0, 0};
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                if (GetPixel(device_, x, y) == RGB(0, 0, 0)) continue;
                drawn.left = std::min<LONG>(drawn.left, x);
                drawn.top = std::min<LONG>(drawn.top, y);
                drawn.right = std::max<LONG>(drawn.right, x + 1);
                drawn.bottom = std::max<LONG>(drawn.bottom, y + 1);
            }
        }
        return drawn;
    }

private:
    HDC device_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
};

}  // namespace

// The icon fills its square of 32 pixels from edge to edge: in an area of 100 it begins at
// (100 - 32 + 1) / 2 = 34.
TEST(DrawIconCentered, PutsTheIconInTheMiddle) {
    const HICON icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_MAIN));
    ASSERT_EQ(32, GetSystemMetrics(SM_CXICON));
    const Picture picture;
    DrawIconCentered(picture.Device(), RECT{0, 0, kSide, kSide}, icon);
    const RECT drawn = picture.Drawn();
    EXPECT_EQ(34, drawn.left);
    EXPECT_EQ(34, drawn.top);
    EXPECT_EQ(66, drawn.right);
    EXPECT_EQ(66, drawn.bottom);
}

TEST(PaintMinimised, LeavesNothingToPaint) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                        nullptr, nullptr, nullptr, nullptr);
    InvalidateRect(window, nullptr, TRUE);
    PaintMinimised(window, LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_MAIN)));
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
    DestroyWindow(window);
}
