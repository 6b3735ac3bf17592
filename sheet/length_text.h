#pragma once

#include <string>

/// What the building measures in mm stands on the page in m here and there.
inline constexpr double kMillimetresOfAMetre = 1000.0;

/// A length on the page, in mm or percent: at most two decimals, no exponent.
std::string LengthText(double length);

/// The same, added to HTML.
void AppendLengthText(std::string& html, double length);
