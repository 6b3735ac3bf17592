#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// Where each of many numbers of nodes, members or load cases stands.
///
/// A hash table in one piece, with a step to the next place on a collision. A run looks up numbers
/// millions of times, and the standard map takes twice as long for it.
class NumberPositions {
public:
    /// Nothing when the number has not been added.
    std::optional<std::size_t> Find(std::int32_t number) const {
        if (slots_.empty()) return std::nullopt;
        const Slot& slot = slots_[SlotOf(number)];
        if (slot.position == kFree) return std::nullopt;
        return slot.position;
    }

    /// Adds a number at `position`, less than 2^32 - 1; one that is there keeps its place. Returns
    /// where the number stands then.
    std::size_t Add(std::int32_t number, std::size_t position);

private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    struct Slot {
        std::int32_t number = 0;
        std::uint32_t position = kFree;
    };

    /// The slot that holds the number, or the free one where it belongs.
    std::size_t SlotOf(std::int32_t number) const {
        // 2^32 over the golden ratio: neighbouring numbers end up far apart.
        const std::uint32_t hash = static_cast<std::uint32_t>(number) * 2654435769U;
        std::size_t i = hash >> shift_;
        while (slots_[i].position != kFree && slots_[i].number != number)
            i = (i + 1) & (slots_.size() - 1);
        return i;
    }

    void Grow();

    std::vector<Slot> slots_;  ///< a power of two of them, at most half of them taken
    std::size_t count_ = 0;
    unsigned shift_ = 32;  ///< leaves as many bits of a hash as the slots have
};
