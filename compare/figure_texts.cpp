#include "compare/figure_texts.h"

std::string AngleTextOf(const StoryRead& story, const DirectionRead& direction,
                        const NumberStyle& style) {
    WorstUprightMember worst;
    worst.drift = direction.worstDrift;
    worst.angle = direction.angle;
    worst.allowable = direction.angleLimit;
    worst.code = direction.angleCode;
    return AngleBesideLimitText(worst, story.height, style).angle;
}

std::string RatioTextOf(const DirectionRead& direction, const NumberStyle& style) {
    return JudgedText(direction.ratio, kStiffnessRatioFormat, kCodeStiffnessRatio,
                      direction.ratioCode, style);
}

std::string ModulusTextOf(const DirectionRead& direction, const NumberStyle& style) {
    return JudgedText(direction.modulus, kModulusFormat, kCodeEccentricityModulus,
                      direction.modulusCode, style);
}
