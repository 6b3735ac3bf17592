#pragma once

#include <windows.h>

/// Draws `icon` in the middle of `area`.
void DrawIconCentered(HDC device, const RECT& area, HICON icon);

/// Paints a minimised window: its icon in the middle of the erased client area. Validates what
/// was to be painted.
void PaintMinimised(HWND window, HICON icon);
