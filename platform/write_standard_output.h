#pragma once

#include <string_view>

#include "platform/standard_streams.h"

/// Writes all of `text` to standard output, now.
Printed WriteStandardOutput(std::string_view text);
