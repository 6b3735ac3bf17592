#pragma once

#include <cmath>
#include <cstdio>
#include <type_traits>

/// What is printed for `value`: a value that is not a number loses its sign, which some C
/// libraries print and others do not.
template <typename Value>
Value Printable(Value value) {
    if constexpr (std::is_floating_point_v<Value>)
        return std::isnan(value) ? std::copysign(value, Value{1}) : value;
    else
        return value;
}

/// Formatted print to a report; the one place where numbers become text. Write errors go
/// unnoticed until the file is closed.
template <typename... Values>
void Print(std::FILE* file, const char* format, Values... values) {
    if constexpr (sizeof...(values) == 0)
        std::fputs(format, file);
    else
        std::fprintf(file, format, Printable(values)...);
}
