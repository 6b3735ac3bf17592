#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Why a field of a table is not the number that is wanted.
enum class NumberFault {
    kNone,
    kEmpty,
    kDecimalComma,
    kNotFinite,  ///< infinite, or beyond the range of numbers
    kNoNumber,
};

struct CellNumber {
    double value = 0.0;
    NumberFault fault = NumberFault::kNone;
};

/// A real number: sign, digits with a decimal point, power of ten; nothing else in the field. In
/// every country's settings alike.
CellNumber NumberOf(std::string_view text);

/// A whole number of 32 bits, digits with or without a minus sign; nothing else in the field.
std::optional<std::int32_t> WholeNumberOf(std::string_view text);

/// Whether the text is a whole number, of whatever size.
bool LooksWhole(std::string_view text);
