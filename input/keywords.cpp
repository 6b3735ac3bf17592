#include "input/keywords.h"

namespace {

// In the order of the enumeration.
constexpr std::string_view kNames[] = {
    "DeadLoadCaseNumber",
    "EarthquakeLoadCaseNumber",
    "FloorLevel",
    "StoryMember",
    "AllowStoryDeformAngle",
    "AllowStoryStiffRatio",
    "AllowStoryEccentricityModulus",
    "MemberDeformAngle",
};

}  // namespace

std::string_view NameOf(Keyword keyword) {
    return kNames[static_cast<std::size_t>(keyword)];
}

std::optional<Keyword> FindKeyword(std::string_view text) {
    for (const Keyword keyword : kAllKeywords)
        if (text == NameOf(keyword)) return keyword;
    return std::nullopt;
}

bool IsAllowableKeyword(Keyword keyword) {
    return keyword == Keyword::kAllowStoryDeformAngle ||
           keyword == Keyword::kAllowStoryStiffRatio ||
           keyword == Keyword::kAllowStoryEccentricityModulus;
}
