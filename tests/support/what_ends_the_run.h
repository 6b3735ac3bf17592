#pragma once

#include <functional>
#include <stdexcept>
#include <string>

/// What() of the out-of-range error with which `step` ends the run; "nothing" where it does not.
inline std::string WhatEndsTheRun(const std::function<void()>& step) {
    try {
        step();
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "nothing";
}
