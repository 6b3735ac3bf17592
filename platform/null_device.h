#pragma once

#include "platform/stdio_file.h"

/// A stream that takes whatever is written to it and keeps nothing.
StdioFile OpenNullDevice();
