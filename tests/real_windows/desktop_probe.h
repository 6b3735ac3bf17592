#pragma once

#include <windows.h>

// What a driver of the tool's windows cannot see from its own process: a hook of this library sits
// in the tool's user-interface thread, answers questions there and notes what the thread does.

/// A question is the message of this name to the main dialog, its number in wParam.
inline constexpr wchar_t kProbeMessage[] = L"QuarnelDesktopProbe";

enum class ProbeQuestion : WPARAM {
    kNone,
    kMapDialogRect,   ///< rectangle from dialog units to pixels
    kMenu,            ///< text: one line per item of the menu bar's first pop-up
    kSystemMenu,      ///< text: one line per item of the system menu
    kIcons,           ///< number: how many of large, small and drag icon are resource 128
    kMessageBoxIcon,  ///< window: the box; number: identifier of the standard icon that it shows
    kClearNotes,      ///< forgets what was noted
};

/// Shared with the tool as a file mapping of the name ProbeSharedName().
///
/// `notes` tells in order what the thread was sent: A line added, T list scrolled, P list painted,
/// D and index a line deleted, I minimised icon's background erased.
struct ProbeExchange {
    RECT rectangle;
    HWND window;
    long long number;
    wchar_t text[2048];
    wchar_t notes[4096];
    int noteCount;
};

/// Fills `name`, of at least 64 characters, for the process `tool`.
inline void ProbeSharedName(DWORD tool, wchar_t* name) {
    wsprintfW(name, L"QuarnelDesktopProbe.%u", tool);
}

/// As above, for the event that is set when the thread takes kProbeMessage with kNone from its
/// queue: everything posted before has been handled, or a modal loop is running.
inline void ProbeEventName(DWORD tool, wchar_t* name) {
    wsprintfW(name, L"QuarnelDesktopProbeEvent.%u", tool);
}
