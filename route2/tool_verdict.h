#pragma once

/// The verdict of a row in the results file.
enum class ToolVerdict { kPass, kFail };

inline ToolVerdict PassesWhen(bool condition) {
    return condition ? ToolVerdict::kPass : ToolVerdict::kFail;
}

inline const char* TextOf(ToolVerdict verdict) {
    return verdict == ToolVerdict::kPass ? "PASS" : "FAIL";
}
