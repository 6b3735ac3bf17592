#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>

/// Hands out the messages that wait for this thread: calls to the objects that a test serves.
inline void ServeCalls() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

/// Returns when `condition` holds; serves calls meanwhile. What never comes fails the test in the
/// end; how long anything takes until then decides nothing.
inline void WaitFor(const std::string& what, const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            throw std::runtime_error("waited in vain for " + what);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        ServeCalls();
    }
}
