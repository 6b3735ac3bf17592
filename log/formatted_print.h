#pragma once

#include <cmath>
#include <cstdio>
#include <type_traits>

/// A format of C's formatted print whose conversions fit the values, which the compiler checks: one
/// conversion for each value, %d for int, %e and %f for double, %s for text.
template <typename... Values>
class PrintFormat {
public:
    // NOLINTNEXTLINE(google-explicit-constructor): a format is written as a literal
    consteval PrintFormat(const char* text) : text_(text) {
        const char* rest = text;
        (TakeConversion<Values>(rest), ...);
        // A text without values is printed as it is.
        if (sizeof...(Values) > 0 && NextConversion(rest) != '\0')
            throw "a conversion without a value";
    }

    const char* Text() const { return text_; }

private:
    // The letter of the next conversion, and `rest` behind it; NUL when there is none.
    static constexpr char NextConversion(const char*& rest) {
        while (*rest != '\0' && *rest != '%')
            ++rest;
        if (*rest == '\0') return '\0';
        ++rest;
        while (*rest == '.' || (*rest >= '0' && *rest <= '9'))
            ++rest;
        return *rest++;
    }

    template <typename Value>
    static constexpr void TakeConversion(const char*& rest) {
        const char letter = NextConversion(rest);
        const bool fits = letter == 'd'                    ? std::is_same_v<Value, int>
                          : letter == 'e' || letter == 'f' ? std::is_same_v<Value, double>
                          : letter == 's'                  ? std::is_same_v<Value, const char*>
                                                           : false;
        if (!fits) throw "a conversion that does not fit its value";
    }

    const char* text_;
};

/// What is printed for `value`: a value that is not a number loses its sign, which some C
/// libraries print and others do not.
template <typename Value>
Value Printable(Value value) {
    if constexpr (std::is_floating_point_v<Value>)
        return std::isnan(value) ? std::copysign(value, Value{1}) : value;
    else
        return value;
}

/// Formatted print to a report; the one place where numbers become text there. Write errors go
/// unnoticed until the file is closed.
template <typename... Values>
void Print(std::FILE* file, PrintFormat<std::type_identity_t<Values>...> format, Values... values) {
    if constexpr (sizeof...(values) == 0)
        std::fputs(format.Text(), file);
    else
        std::fprintf(file, format.Text(), Printable(values)...);
}
