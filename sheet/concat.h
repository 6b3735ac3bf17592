#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

/// One text of several.
inline std::string Concat(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}
