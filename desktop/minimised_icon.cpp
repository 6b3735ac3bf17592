#include "desktop/minimised_icon.h"

void DrawIconCentered(HDC device, const RECT& area, HICON icon) {
    const int width = GetSystemMetrics(SM_CXICON);
    const int height = GetSystemMetrics(SM_CYICON);
    DrawIcon(device, (area.left + area.right - width + 1) / 2,
             (area.top + area.bottom - height + 1) / 2, icon);
}

void PaintMinimised(HWND window, HICON icon) {
    PAINTSTRUCT paint;
    const HDC device = BeginPaint(window, &paint);
    SendMessageW(window, WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(device), 0);
    RECT client;
    GetClientRect(window, &client);
    DrawIconCentered(device, client, icon);
    EndPaint(window, &paint);
}
