#pragma once

#include <string>

/// A warning as it stands in the log.
inline std::string LoggedWarning(const std::string& text) {
    return "\n*** WARNING *** : " + text + "\n";
}

/// The log of a step that starts, writes `between` and ends.
inline std::string StepLog(const std::string& subject, const std::string& between = "") {
    return "\nStarts setting " + subject + "...\n" + between + "Ends setting " + subject + "...\n";
}

/// The log of a step that starts, warns and is refused.
inline std::string RefusedStepLog(const std::string& subject, const std::string& warning) {
    return "\nStarts setting " + subject + "...\n" + LoggedWarning(warning);
}
