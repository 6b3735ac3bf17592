#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>

/// Returns when `condition` holds. What never comes fails the test after a minute; how long
/// anything takes until then decides nothing.
inline void WaitFor(const std::string& what, const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            throw std::runtime_error("waited in vain for " + what);
        }
        Sleep(5);
    }
}
