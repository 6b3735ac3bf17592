#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

/// What an index beyond a vector's end does: it ends the run.
[[noreturn]] inline void ThrowInvalidSubscript() {
    throw std::out_of_range("invalid vector subscript");
}

/// Element `index` of a vector; an index beyond its end, negative ones included, ends the run.
template <typename Element>
Element& At(std::vector<Element>& elements, std::int64_t index) {
    if (index < 0 || static_cast<std::uint64_t>(index) >= elements.size()) ThrowInvalidSubscript();
    return elements[static_cast<std::size_t>(index)];
}

template <typename Element>
const Element& At(const std::vector<Element>& elements, std::int64_t index) {
    if (index < 0 || static_cast<std::uint64_t>(index) >= elements.size()) ThrowInvalidSubscript();
    return elements[static_cast<std::size_t>(index)];
}

template <typename Element>
Element& At(std::vector<Element>& elements, std::size_t index) {
    return At(elements, static_cast<std::int64_t>(index));
}

template <typename Element>
const Element& At(const std::vector<Element>& elements, std::size_t index) {
    return At(elements, static_cast<std::int64_t>(index));
}
