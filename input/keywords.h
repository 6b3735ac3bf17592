#pragma once

#include <optional>
#include <string_view>

/// The keywords of the Route 2 Input file.
enum class Keyword {
    kDeadLoadCaseNumber,
    kEarthquakeLoadCaseNumber,
    kFloorLevel,
    kStoryMember,
    kAllowStoryDeformAngle,
    kAllowStoryStiffRatio,
    kAllowStoryEccentricityModulus,
    kMemberDeformAngle,
};

inline constexpr Keyword kAllKeywords[] = {
    Keyword::kDeadLoadCaseNumber,
    Keyword::kEarthquakeLoadCaseNumber,
    Keyword::kFloorLevel,
    Keyword::kStoryMember,
    Keyword::kAllowStoryDeformAngle,
    Keyword::kAllowStoryStiffRatio,
    Keyword::kAllowStoryEccentricityModulus,
    Keyword::kMemberDeformAngle,
};

/// A keyword as it stands in the file: exactly so, capitals included.
std::string_view NameOf(Keyword keyword);

/// The keyword that is written exactly like `text`.
std::optional<Keyword> FindKeyword(std::string_view text);

/// Whether story lines with one allowable value each follow the keyword.
bool IsAllowableKeyword(Keyword keyword);

/// The line that ends the data begins like this; anything may follow.
inline constexpr std::string_view kFin = "FIN";
