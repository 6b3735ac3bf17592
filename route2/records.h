#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "host/vec3.h"

/// One value per plan direction: [kX] X, [kZ] Z(or Y). The second plan direction is global z when
/// Y is vertical and global y when Z is vertical.
using PerDirection = std::array<double, 2>;

/// One value per plan direction and load case, in the order of the engine's loadCaseNumbers.
using PerDirectionByLoadCase = std::array<std::vector<double>, 2>;

inline constexpr std::size_t kX = 0;
inline constexpr std::size_t kZ = 1;

/// The earthquake load case of each plan direction.
using EarthquakeCases = std::array<std::int32_t, 2>;

/// One member of one story under one load case.
struct StoryMember {
    std::int32_t loadCaseNumber = 0;
    std::int32_t memberNumber = 0;
    std::int32_t lowerNodeNumber = 0;  ///< the member's end node at the lower floor
    std::int32_t upperNodeNumber = 0;  ///< the member's end node at the upper floor
    double planX = 0.0;                ///< x of the lower node, mm
    double planZ = 0.0;                ///< z of the lower node, mm; its y when Z is vertical
    Vec3 axisX;                        ///< the member's local axes, each a copy of the
    Vec3 axisY;                        ///<   engine's memberAxisX, memberAxisY, memberAxisZ
    Vec3 axisZ;
    PerDirection relativeDisp{};  ///< upper node minus lower node, mm, signed
    PerDirection shearForce{};    ///< share of the story shear under each earthquake case, kN

    /// kN/mm. [kX] only in records of the X earthquake case, [kZ] only in records of the
    /// Z(or Y) case; 0 in every other record.
    PerDirection horizontalStiffness{};

    bool outputDeformAngle = false;  ///< report this member's own story deformation angle
};

/// The space between two neighbouring floor levels.
struct StoryInfo {
    double allowDeformAngle = 0.0;          ///< allowable story deformation angle
    double allowStiffRatio = 0.0;           ///< allowable story stiffness ratio
    double allowEccentricityModulus = 0.0;  ///< allowable eccentricity modulus
    double lowerLevel = 0.0;                ///< mm
    double upperLevel = 0.0;                ///< mm

    PerDirection maxRelativeDisp{};  ///< largest signed value of all records, mm
    PerDirectionByLoadCase maxRelativeDispByLoadCase;
    PerDirection meanRelativeDisp{};  ///< mean over all records, mm
    PerDirectionByLoadCase meanRelativeDispByLoadCase;

    /// One record per story member and load case: all load cases of the first member, then all
    /// of the next.
    std::vector<StoryMember> members;

    std::optional<double> weightAbove;  ///< sum of the vertical forces of the centre of gravity, kN
    PerDirection gravityCenter{};       ///< plan coordinates, mm
    PerDirection rigidityCenter{};      ///< plan coordinates, mm
    PerDirection eccentricityModulus{};
};

/// mm; positive, unless a floor level is not a number.
inline double StoryHeight(const StoryInfo& story) {
    return story.upperLevel - story.lowerLevel;
}
