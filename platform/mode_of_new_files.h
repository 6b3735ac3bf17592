#pragma once

#include <sys/types.h>

/// Rights of a file that a program makes where POSIX holds: less what the user's umask takes away.
inline constexpr mode_t kModeOfNewFiles = 0666;
