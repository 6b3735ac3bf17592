#pragma once

#include <string>
#include <string_view>

/// How the sheet looks, on paper (A4) and on a screen.
extern const std::string_view kSheetStyle;

/// To follow it where the first page must hold more than usual.
extern const std::string_view kStyleOfCrowdedFirstPage;

/// The style of the sheet, with `foot` at the foot of every printed page; it holds no quotation
/// marks.
std::string StyleWithFoot(std::string_view foot);
