#pragma once

#include <string>

/// A length on the page, in mm or percent: at most two decimals, no exponent.
std::string LengthText(double length);

/// The same, added to HTML.
void AppendLengthText(std::string& html, double length);
