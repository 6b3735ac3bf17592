#include "platform/terminal.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

#ifdef _WIN32

bool StandardOutputShowsColor() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(output, &mode) != 0 &&
           SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

bool StandardErrorIsTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

#else

bool StandardOutputShowsColor() {
    return isatty(STDOUT_FILENO) != 0;
}

bool StandardErrorIsTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

#endif
