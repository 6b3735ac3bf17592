#include "sheetapp/text_keys.h"

#include <commctrl.h>

namespace {

LRESULT CALLBACK TextProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                               UINT_PTR /*id*/, DWORD_PTR /*data*/) {
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    return message == WM_GETDLGCODE ? result & ~(DLGC_WANTALLKEYS | DLGC_HASSETSEL) : result;
}

}  // namespace

void LeaveDialogKeysToTheDialog(HWND text) {
    SetWindowSubclass(text, TextProcedure, 0, 0);
}
