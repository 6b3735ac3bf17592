#pragma once

#include <optional>

/// What the building code says of a value. A value that was not formed is never OK.
enum class CodeVerdict { kOk, kNg, kUndetermined };

/// OK, NG, undetermined.
const char* TextOf(CodeVerdict verdict);

/// The tighter of two: NG before undetermined before OK.
CodeVerdict WorseOf(CodeVerdict one, CodeVerdict other);

// Limits of the building code (Enforcement Order of the Building Standard Law of Japan).
inline constexpr double kCodeDeformAngle = 1.0 / 200.0;          // article 82-2
inline constexpr double kCodeRelievedDeformAngle = 1.0 / 120.0;  // the same, where no harm is done
inline constexpr double kCodeStiffnessRatio = 0.6;               // article 82-6, item 2 (a)
inline constexpr double kCodeEccentricityModulus = 0.15;         // article 82-6, item 2 (b)

/// The limit of a story's deformation angle by the code: 1/200; the input's allowable angle where
/// that is a relief, greater than 1/200 and not above 1/120; 1/120 where the input allows more.
double CodeAllowableAngle(double allowableOfInput);

// Each takes the unrounded value; a value equal to its limit is OK, and one that is not there, or
// not finite, is undetermined.

/// `angle` is an amount.
CodeVerdict JudgeAngleByCode(std::optional<double> angle, double allowable);

/// A negative ratio is NG.
CodeVerdict JudgeRatioByCode(std::optional<double> ratio);
CodeVerdict JudgeModulusByCode(std::optional<double> modulus);
