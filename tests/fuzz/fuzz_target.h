#pragma once

#include <cstddef>
#include <cstdint>

/// One try of a fuzz target: whatever the bytes are, it returns 0. A fault aborts the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
