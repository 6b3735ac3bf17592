#pragma once

#include <cstdint>
#include <string>

/// A Route 2 Input file put together at random from what people write and mistype: keywords whole
/// and maimed, story lines, lists with and without their last comma, empty entries, remarks, blank
/// lines, long lines, line ends of all kinds, noise. Most have a line FIN. The same seed gives the
/// same file on every platform.
std::string RandomInput(std::uint64_t seed);
