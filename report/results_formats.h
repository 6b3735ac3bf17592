#pragma once

// Rows of the results file as the C library prints them; each ends with a line feed.

inline constexpr const char* kLoadCaseRowFormat = "%d,%d,%.3e,%.3e,%.3e,%.5e,%.5e,%.5e,%s\n";
inline constexpr const char* kAllRowFormat = "%d,All,%.3e,%.3e,%.3e,%.5e,%.5e,%.5e,%s\n";
inline constexpr const char* kCenterRowFormat = "%d,%.3e,%.3e,%.3e,%.5e,%.5e\n";
inline constexpr const char* kModulusRowFormat = "%d,%.3e,%.3e,%.3e,%.5e,%.5e,%.5e,%s,%s\n";
