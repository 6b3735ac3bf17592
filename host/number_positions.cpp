#include "host/number_positions.h"

#include <bit>
#include <utility>

std::size_t NumberPositions::Add(std::int32_t number, std::size_t position) {
    if (2 * (count_ + 1) > slots_.size()) Grow();
    Slot& slot = slots_[SlotOf(number)];
    if (slot.position == kFree) {
        slot = {number, static_cast<std::uint32_t>(position)};
        ++count_;
    }
    return slot.position;
}

void NumberPositions::Grow() {
    constexpr std::size_t kFewest = 16;
    const std::vector<Slot> old =
        std::exchange(slots_, std::vector<Slot>(slots_.empty() ? kFewest : 2 * slots_.size()));
    shift_ = 32U - static_cast<unsigned>(std::countr_zero(slots_.size()));
    for (const Slot& slot : old)
        if (slot.position != kFree) slots_[SlotOf(slot.number)] = slot;
}
