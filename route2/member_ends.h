#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "host/host_queries.h"
#include "route2/node_table.h"

/// A member's two end nodes, as the host names them, and where they stand in the node table. A
/// node that is not there has no place.
struct MemberEnds {
    std::int32_t startNode = 0;
    std::int32_t endNode = 0;
    std::optional<std::size_t> start;
    std::optional<std::size_t> end;

    bool BothFound() const { return start && end; }
};

/// Finds two end nodes in the table; of a number that stands twice there, the first counts.
MemberEnds FindMemberEnds(std::int32_t startNode, std::int32_t endNode, const NodeTable& nodes);

/// Asks the host for a member's end nodes and finds them. One question.
MemberEnds AskMemberEnds(HostQueries& host, std::int32_t member, const NodeTable& nodes);

/// The heights of a member's ends, mm.
struct EndHeights {
    std::int32_t startNode = 0;
    std::int32_t endNode = 0;
    double start = 0.0;
    double end = 0.0;
};

/// Both ends must have been found.
EndHeights HeightsOf(const MemberEnds& ends, const NodeTable& nodes);

// The node at a member's lower and at its upper end. Of a level member both are the end node.
std::int32_t LowerNodeNumber(const EndHeights& ends);
std::int32_t UpperNodeNumber(const EndHeights& ends);

/// mm, never negative.
double MemberHeight(const EndHeights& ends);
