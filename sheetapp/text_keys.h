#pragma once

#include <windows.h>

/// Leaves Escape, Enter and Tab to the dialog when the focus is in a text of several lines. By
/// itself such a text closes the dialog at Escape, and all of it is selected when it is reached.
void LeaveDialogKeysToTheDialog(HWND text);
