#pragma once

#include <string>

#include "sheet/svg.h"

// Colours are added to shapes that differ without them.
inline constexpr std::string_view kBlack = "#000";
inline constexpr std::string_view kRed = "#c00000";
inline constexpr std::string_view kGreen = "#1a7f37";
inline constexpr std::string_view kBlue = "#0b5394";
inline constexpr std::string_view kLightBlue = "#dbe9f7";
inline constexpr std::string_view kGrey = "#8a8a8a";
inline constexpr std::string_view kLightGrey = "#b5b5b5";
inline constexpr std::string_view kForbidden = "#ececec";

inline constexpr double kSmallestText = 2.2;  // mm

/// A bar of a round length, at most `longest` mm on paper, with its length in metres. `scale`: mm
/// on paper per mm of the building. Gives the width that it takes.
double DrawScaleBar(Svg& svg, Point at, double scale, double longest);

/// An arrow along one of the page's axes, with the name of a plan direction.
void DrawAxis(Svg& svg, Point at, Point direction, const std::string& name);

/// A sample of what stands in a drawing, and what it means.
std::string LegendItem(const Svg& sample, Words meaning);
