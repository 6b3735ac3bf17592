#pragma once

#include <string>
#include <string_view>

/// How the sheet looks, on paper (A4) and on a screen.
extern const std::string_view kSheetStyle;

/// The same, with `foot` at the foot of every printed page; it holds no quotation marks.
std::string StyleWithFoot(std::string_view foot);
