#include "desktop/status_list_box.h"

#include "desktop/resource_text.h"

void StatusListBox::Clear() {
    for (LRESULT count = SendMessageW(control_, LB_GETCOUNT, 0, 0); count > 0; --count) {
        SendMessageW(control_, LB_DELETESTRING, static_cast<WPARAM>(count - 1), 0);
    }
}

void StatusListBox::Append(StatusText line) {
    AppendText(static_cast<int>(line));
}

void StatusListBox::AppendText(int textId) {
    const LRESULT index = SendMessageW(control_, LB_ADDSTRING, 0,
                                       reinterpret_cast<LPARAM>(ResourceText(textId).c_str()));
    SendMessageW(control_, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
    UpdateWindow(control_);
}
