#pragma once

#include <windows.h>

#include <string>

/// Shows a text under the program's name and waits for an answer. `style` names the buttons and
/// the icon; the answer is the identifier of the pressed button.
int ShowMessageBox(HWND owner, const std::wstring& text, UINT style);

/// Tells the user of the exception now being handled, and returns: the program goes on. Only to be
/// called inside a catch block.
void ReportCurrentException(HWND owner);
