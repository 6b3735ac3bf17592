#pragma once

// Factors from the host's base units to the engine's mm and kN.

inline constexpr double kMillimetresPerInch = 25.4;  // exact, by definition of the inch
inline constexpr double kMillimetresPerMetre = 1000.0;
inline constexpr double kKnPerKip = 4.4482216152605;  // exact: 1 lbf = 4.4482216152605 N
