#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

/// Opens a file in the application that the desktop associates with its type, and tells the user
/// in a message box when the shell refuses.
void OpenInItsApplication(HWND owner, const std::wstring& path);

/// The string-table text for an answer of the shell; 0 when the answer means success.
///
/// The answer counts as a signed number of 32 bits: above 32 is success, and a value that is
/// negative as such a number is a failure.
int ShellFailureText(std::intptr_t shellResult);
