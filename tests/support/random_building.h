#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "host/recorded_model.h"

/// A point, a displacement (mm) or a force (kN) of a building: two plan directions and upwards.
struct PlanVector {
    double x = 0.0;
    double z = 0.0;  ///< the second plan direction, whatever the host calls it
    double up = 0.0;
};

/// A building apart from any host: mm and kN, the vertical axis named by its meaning. `zUp` and
/// `inch` only say in which axes and units a host shows it.
struct Building {
    struct Node {
        std::int32_t number;
        PlanVector at;  ///< mm
        bool supported;
    };
    struct Member {
        std::int32_t number;
        std::int32_t start, end;  ///< node numbers
        double beta;              ///< degrees
    };
    /// Load case and node.
    using NodeKey = std::pair<std::int32_t, std::int32_t>;
    /// Load case, member and end (0 start, 1 end).
    using EndKey = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

    bool zUp = false;
    bool inch = false;
    std::vector<Node> nodes;
    std::vector<Member> members;
    std::vector<std::int32_t> primaryLoadCases;
    std::vector<std::int32_t> loadCombinations;
    std::int32_t deadLoadCase = 0;
    std::int32_t earthquakeX = 0;
    std::int32_t earthquakeZ = 0;
    std::map<NodeKey, PlanVector> displacements;  ///< mm
    std::map<EndKey, PlanVector> forces;          ///< on the member's end, global, kN
    std::vector<std::int32_t> reportedMembers;

    const Node& FindNode(std::int32_t number) const;
};

/// A frame of one to four stories, its shape, numbering, drifts and forces all from `seed`: the
/// same on every platform. Earthquakes push forward everywhere, and every story member carries
/// some of them. Columns, braces in the x direction, columns through two stories, beams, random
/// rotations and directions.
Building RandomBuilding(std::uint64_t seed);

/// The same kind of frame, symmetric about both plan axes in shape, stiffness and weight; drifts
/// without torsion.
Building RandomSymmetricBuilding(std::uint64_t seed);

/// The building as a host answers about it: in its axes and units, forces along local axes.
RecordedModel AsHostModel(const Building& building);

/// Its Route 2 Input file: load cases and reported members; floors and story members are left to
/// the geometry.
std::string InputFileOf(const Building& building);
