#pragma once

#include <concepts>
#include <cstddef>
#include <stdexcept>
#include <utility>

/// What an index beyond a vector's end does: it ends the run.
[[noreturn]] inline void ThrowInvalidSubscript() {
    throw std::out_of_range("invalid vector subscript");
}

/// Element `index` of a vector; an index beyond its end, negative ones included, ends the run.
template <typename Vector, std::integral Index>
auto& At(Vector& elements, Index index) {
    if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, elements.size()))
        ThrowInvalidSubscript();
    return elements[static_cast<std::size_t>(index)];
}
