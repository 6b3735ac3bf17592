#pragma once

#include <cstdint>
#include <string>

/// What Windows says about an error number, one sentence without a line end, in the process's
/// narrow code page.
std::string SystemErrorText(std::uint32_t error);
