#include "tests/support/failing_allocations.h"

#include <cstdlib>
#include <new>

namespace {

long allocationsLeft = kAllAllocations;

}  // namespace

void LetAllocationsSucceed(long count) {
    allocationsLeft = count;
}

void* operator new(std::size_t size) {
    if (allocationsLeft != kAllAllocations && allocationsLeft-- <= 0) throw std::bad_alloc();
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
