#pragma once

#include <string_view>

/// How the sheet looks, on paper (A4) and on a screen.
extern const std::string_view kSheetStyle;
