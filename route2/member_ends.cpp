#include "route2/member_ends.h"

#include <cmath>

#include "route2/aij_code_route2.h"
#include "route2/tested_access.h"

MemberEnds FindMemberEnds(std::int32_t startNode, std::int32_t endNode, const NodeTable& nodes) {
    return {startNode, endNode, nodes.positions.First(startNode), nodes.positions.First(endNode)};
}

MemberEnds AskMemberEnds(HostQueries& host, std::int32_t member, const NodeTable& nodes) {
    std::int32_t startNode = 0, endNode = 0;
    host.GetMemberIncidence(member, startNode, endNode);
    return FindMemberEnds(startNode, endNode, nodes);
}

EndHeights HeightsOf(const MemberEnds& ends, const NodeTable& nodes) {
    return {ends.startNode, ends.endNode, nodes.HeightOf(*ends.start), nodes.HeightOf(*ends.end)};
}

std::int32_t LowerNodeNumber(const EndHeights& ends) {
    return ends.end > ends.start ? ends.startNode : ends.endNode;
}

std::int32_t UpperNodeNumber(const EndHeights& ends) {
    return ends.start > ends.end ? ends.startNode : ends.endNode;
}

double MemberHeight(const EndHeights& ends) {
    return std::abs(ends.start - ends.end);
}

EndHeights AijCodeRoute2::AskEndHeights(std::int32_t member, WarningKind whenMissing) {
    const MemberEnds ends = AskMemberEnds(*hostLink, member, Nodes());
    if (!ends.BothFound()) {
        Warn(whenMissing);
        ThrowInvalidSubscript();
    }
    return HeightsOf(ends, Nodes());
}

std::int32_t AijCodeRoute2::SetLowerNodeNumber(std::int32_t member) {
    return LowerNodeNumber(AskEndHeights(member, WarningKind::kNodeMissingForLowerNode));
}

std::int32_t AijCodeRoute2::SetUpperNodeNumber(std::int32_t member) {
    return UpperNodeNumber(AskEndHeights(member, WarningKind::kNodeMissingForUpperNode));
}

double AijCodeRoute2::SetMemberHeight(std::int32_t member) {
    return MemberHeight(AskEndHeights(member, WarningKind::kNodeMissingForHeight));
}
