#pragma once

#include <limits>

// For a test program that links failing_allocations.cpp, which takes the place of the operator that
// allocates.

inline constexpr long kAllAllocations = std::numeric_limits<long>::max();

/// So many further allocations succeed; those after them throw std::bad_alloc.
void LetAllocationsSucceed(long count);
