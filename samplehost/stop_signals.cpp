#include "samplehost/stop_signals.h"

#include <windows.h>

#include <thread>

#include "samplehost/stop_window.h"

namespace {

constexpr DWORD kPatienceMs = 10000;
constexpr DWORD kPollMs = 20;

// Windows ends a process as soon as the handler of a closing console returns, so the handler waits
// for the window to go: by then everything is cleaned up.
BOOL WINAPI OnConsoleSignal(DWORD) {
    const HWND window = StopWindow::FindRunning();
    StopWindow::AskToStop();
    for (DWORD waited = 0; IsWindow(window) != FALSE && waited < kPatienceMs; waited += kPollMs)
        Sleep(kPollMs);
    return TRUE;
}

// Read past the C library: its lock on standard input would hold up the end of the process.
void StopAtEnterKey() {
    char key = '\0';
    DWORD count = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &key, 1, &count, nullptr) != FALSE &&
           count == 1) {
        if (key == '\n') {
            StopWindow::AskToStop();
            return;
        }
    }
}

}  // namespace

void ListenForStopSignals() {
    SetConsoleCtrlHandler(OnConsoleSignal, TRUE);
    std::thread(StopAtEnterKey).detach();
}

bool StopRunningSampleHost() {
    const HWND window = StopWindow::FindRunning();
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, processId);
    if (process == nullptr) return false;
    StopWindow::AskToStop();
    const bool hasEnded = WaitForSingleObject(process, kPatienceMs) == WAIT_OBJECT_0;
    CloseHandle(process);
    return hasEnded;
}
