#include "route2/placed_members.h"

#include "route2/gravity_center.h"

std::vector<PlacedMember> PlaceMembers(const AijCodeRoute2& engine) {
    std::vector<PlacedMember> placed;
    for (std::size_t j = 0; j < engine.memberEndNodes.size(); ++j) {
        const std::int32_t startNode = engine.memberEndNodes[j][0];
        const std::int32_t endNode = engine.memberEndNodes[j][1];
        const MemberEnds ends = FindMemberEnds(startNode, endNode, engine.Nodes());
        if (!ends.BothFound()) continue;
        const EndHeights heights = HeightsOf(ends, engine.Nodes());
        const std::int32_t lowerNode = LowerNodeNumber(heights);
        const std::int32_t upperNode = UpperNodeNumber(heights);
        const auto point = [&](std::int32_t node) {
            return engine.nodeCoords[node == startNode ? *ends.start : *ends.end];
        };
        placed.push_back({engine.memberNumbers[j], j, startNode, lowerNode, upperNode,
                          point(lowerNode), point(upperNode)});
    }
    return placed;
}

std::vector<PlacedMember> CutMembers(const StoryInfo& story,
                                     const std::vector<PlacedMember>& members, bool zIsVertical) {
    const double cuttingLevel = CuttingLevel(story);
    std::vector<PlacedMember> cut;
    for (const PlacedMember& member : members)
        if (IsCut(Vertical(member.lower, zIsVertical), Vertical(member.upper, zIsVertical),
                  cuttingLevel))
            cut.push_back(member);
    return cut;
}

MemberAxes ShearAxes(const AijCodeRoute2& engine, const NumberIndex& memberPositions,
                     std::int32_t member) {
    const auto position = memberPositions.Last(member);
    if (!position || *position >= engine.memberAxisZ.size()) return {};
    return {engine.memberAxisX[*position], engine.memberAxisY[*position],
            engine.memberAxisZ[*position]};
}
