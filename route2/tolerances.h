#pragma once

/// Heights and levels closer than this count as one, mm.
inline constexpr double kSameLevel = 0.1;

/// What the checks' warnings call "nearly equal to 0": a total (kN, kN/mm or kN mm) smaller than
/// this in size.
inline constexpr double kNearlyZero = 1e-06;

/// Values this close to a limit count as equal to it, where amounts are compared with limits of the
/// code: relative.
inline constexpr double kRelativeTolerance = 1e-9;
