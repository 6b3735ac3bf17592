#include "route2/code_verdict.h"

#include <cmath>

#include "route2/tolerances.h"

namespace {

// 1/120 is often written 0.00833 or 0.008334.
constexpr double kRoundingOfRelief = 1.0001;

CodeVerdict Judge(std::optional<double> value, bool isOk) {
    if (!value || !std::isfinite(*value)) return CodeVerdict::kUndetermined;
    return isOk ? CodeVerdict::kOk : CodeVerdict::kNg;
}

bool IsAtMost(std::optional<double> value, double limit) {
    return value && *value <= limit * (1.0 + kRelativeTolerance);
}

}  // namespace

const char* TextOf(CodeVerdict verdict) {
    switch (verdict) {
        case CodeVerdict::kOk:
            return "OK";
        case CodeVerdict::kNg:
            return "NG";
        case CodeVerdict::kUndetermined:
            return "undetermined";
    }
    return "";
}

CodeVerdict WorseOf(CodeVerdict one, CodeVerdict other) {
    if (one == CodeVerdict::kNg || other == CodeVerdict::kNg) return CodeVerdict::kNg;
    if (one == CodeVerdict::kUndetermined) return one;
    return other;
}

double CodeAllowableAngle(double allowableOfInput) {
    if (!(allowableOfInput > kCodeDeformAngle)) return kCodeDeformAngle;
    if (allowableOfInput <= kCodeRelievedDeformAngle * kRoundingOfRelief) return allowableOfInput;
    return kCodeRelievedDeformAngle;
}

CodeVerdict JudgeAngleByCode(std::optional<double> angle, double allowable) {
    return Judge(angle, IsAtMost(angle, allowable));
}

CodeVerdict JudgeRatioByCode(std::optional<double> ratio) {
    return Judge(ratio, ratio && *ratio >= kCodeStiffnessRatio * (1.0 - kRelativeTolerance));
}

CodeVerdict JudgeModulusByCode(std::optional<double> modulus) {
    return Judge(modulus, IsAtMost(modulus, kCodeEccentricityModulus));
}
