#pragma once

/// The verdict of a row in the results file.
enum class ToolVerdict { kPass, kFail };

inline ToolVerdict PassesWhen(bool condition) {
    return condition ? ToolVerdict::kPass : ToolVerdict::kFail;
}

inline const char* TextOf(ToolVerdict verdict) {
    return verdict == ToolVerdict::kPass ? "PASS" : "FAIL";
}

/// How many verdicts of each kind a results file shows, in all rows of all sections. A row that
/// repeats an older verdict counts as it stands.
struct PrintedVerdicts {
    int pass = 0;
    int fail = 0;
};
