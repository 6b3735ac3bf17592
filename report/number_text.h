#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "route2/findings.h"

// How figures become text for a person, on the calculation sheet and in the terminal.
//
// A figure that is held against a limit is rounded towards the limit's forbidden side, and what is
// printed never contradicts the verdict. There is no negative zero; a figure that was not formed,
// or is not finite, has a text of its own.

/// How numbers are written.
struct NumberStyle {
    std::string_view minus;
    std::string_view thousands;  ///< between groups of three digits, from 1,000; never in 1/N
    std::string_view notFormed;
};

/// Stands on a page for a figure that was not formed.
inline constexpr const char* kNoFigure = "—";

inline constexpr NumberStyle kPageNumbers{"−", ",", kNoFigure};
inline constexpr NumberStyle kTerminalNumbers{"-", "", "n/a"};

enum class Rounding {
    kNearest,  ///< halves away from zero
    kDown,     ///< a whole number less a billionth part counts as that number
    kUp,       ///< likewise
};

struct NumberFormat {
    Rounding rounding = Rounding::kNearest;
    int decimals = 0;  ///< at most 6
};

inline constexpr NumberFormat kDriftFormat{Rounding::kNearest, 3};  // mm
inline constexpr NumberFormat kStiffnessIndexFormat{Rounding::kNearest, 1};
inline constexpr NumberFormat kStiffnessRatioFormat{Rounding::kDown, 3};
inline constexpr NumberFormat kModulusFormat{Rounding::kUp, 3};
inline constexpr NumberFormat kForceFormat{Rounding::kNearest, 1};  // kN
inline constexpr NumberFormat kForceInDetailFormat{Rounding::kNearest, 2};
inline constexpr NumberFormat kCoefficientFormat{Rounding::kNearest, 3};
inline constexpr NumberFormat kStiffnessFormat{Rounding::kNearest, 2};  // kN/mm
inline constexpr NumberFormat kStiffnessInDetailFormat{Rounding::kNearest, 3};
inline constexpr NumberFormat kMomentFormat{Rounding::kNearest, 0};      // kN, kN m
inline constexpr NumberFormat kTorsionFormat{Rounding::kNearest, 3};     // x 10^n kN m
inline constexpr NumberFormat kCoordinateFormat{Rounding::kNearest, 0};  // mm
inline constexpr NumberFormat kPercentFormat{Rounding::kNearest, 1};
inline constexpr NumberFormat kMaxOverMeanFormat{Rounding::kNearest, 3};
inline constexpr NumberFormat kUtilisationFormat{Rounding::kUp, 2};
inline constexpr NumberFormat kFactorFormat{Rounding::kUp, 2};

std::string NumberText(const Figure& figure, NumberFormat format,
                       const NumberStyle& style = kPageNumbers);

/// A figure that was judged against `limit`, in a format that rounds towards the forbidden side:
/// the text lies on the side of the limit that the verdict says.
std::string JudgedText(const Figure& figure, NumberFormat format, double limit, CodeVerdict verdict,
                       const NumberStyle& style = kPageNumbers);

/// A level or a story height, mm: whole, or with two decimals when it is not whole within 0.005.
std::string LevelText(const Figure& millimetres, const NumberStyle& style = kPageNumbers);

/// A share of 1 in percent, without the sign.
std::string PercentText(const Figure& share, const NumberStyle& style = kPageNumbers);

std::string CountText(std::uintmax_t count, const NumberStyle& style = kPageNumbers);

/// The number of a member, node or load case: never with thousands.
std::string IdentifierText(const std::optional<std::int32_t>& number,
                           const NumberStyle& style = kPageNumbers);

/// A story deformation angle, of a drift (mm, signed) over a height (mm), as 1/N with N rounded
/// down: the angle printed is never smaller than the real one. "0" without drift, "<1/9999" below
/// that, ">1" above 1.
std::string AngleText(const Figure& drift, double height, const NumberStyle& style = kPageNumbers);

/// An allowable angle as 1/N, with one decimal where N is not whole within a thousandth part.
std::string AllowableAngleText(double allowable, const NumberStyle& style = kPageNumbers);

/// The amount of an angle beside its limit. Where the limit is not 1 over a whole number, both get
/// as many decimals as it takes for their order to be that of the verdict.
struct AngleBesideLimit {
    std::string angle;
    std::string allowable;
};
AngleBesideLimit AngleBesideLimitText(const WorstUprightMember& worst, double height,
                                      const NumberStyle& style = kPageNumbers);

/// A number as the results file has it, "1.17351e-03".
std::string ResultsNumberText(const std::optional<double>& number,
                              const NumberStyle& style = kPageNumbers);

/// A value of the input file in as few digits as read back to it, without an exponent.
std::string InputValueText(double value, const NumberStyle& style = kPageNumbers);

/// The exponent n, a multiple of 3, with which the greatest of the torsional stiffnesses is at
/// least 1 times 10^n kN m.
int TorsionExponent(std::span<const StoryFindings> stories);

/// A torsional stiffness (kN mm) in 10^exponent kN m.
std::string TorsionText(const Figure& torsionalStiffness, int exponent,
                        const NumberStyle& style = kPageNumbers);
