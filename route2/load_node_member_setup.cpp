// Setup from the host: load case numbers, nodes and base level, members and their local axes.

#include "host/member_axes.h"
#include "log/processing_log.h"
#include "route2/aij_code_route2.h"

void AijCodeRoute2::SetLoadInfo() {
    LogStart(logFile, "load info");
    numPrimaryLoadCases = hostLink->GetPrimaryLoadCaseCount();
    numLoadCombinations = hostLink->GetLoadCombinationCount();

    std::vector<std::int32_t> primary(static_cast<std::size_t>(numPrimaryLoadCases));
    std::vector<std::int32_t> combinations(static_cast<std::size_t>(numLoadCombinations));
    hostLink->GetPrimaryLoadCaseNumbers(primary);
    hostLink->GetLoadCombinationNumbers(combinations);

    loadCaseNumbers.insert(loadCaseNumbers.end(), primary.begin(), primary.end());
    loadCaseNumbers.insert(loadCaseNumbers.end(), combinations.begin(), combinations.end());
    loadInfoSet = true;
    LogEnd(logFile, "load info");
}

void AijCodeRoute2::SetNodeInfo() {
    LogStart(logFile, "node info");
    ReadNodeNumbers();
    baseLevel = 0.0;
    for (const std::int32_t node : nodeNumbers) {
        nodeCoords.push_back(AskNodeCoordinates(node));
        SixIntegers codes{};
        SixDoubles values{};
        nodeSupported.push_back(hostLink->GetSupportInfo(node, codes, values) != 0);
        LowerBaseLevel();
    }
    nodeInfoSet = true;
    LogEnd(logFile, "node info");
}

void AijCodeRoute2::ReadNodeNumbers() {
    std::vector<std::int32_t> list(static_cast<std::size_t>(hostLink->GetNodeCount()));
    hostLink->GetNodeList(list);
    nodeNumbers.reserve(list.size());
    nodeCoords.reserve(list.size());
    nodeSupported.reserve(list.size());
    for (const std::int32_t node : list) {
        // The host is asked for every node before any is used; the answer comes again later.
        AskNodeCoordinates(node);
        nodeNumbers.push_back(node);
    }
    nodePositions_ = NumberIndex(nodeNumbers);
}

Vec3 AijCodeRoute2::AskNodeCoordinates(std::int32_t node) {
    Vec3 point;
    hostLink->GetNodeCoordinates(node, point.x, point.y, point.z);
    const double factor = MillimetresPerHostLength();
    return {point.x * factor, point.y * factor, point.z * factor};
}

// The first node of the list takes part in the base level even without a support: this is intended,
// and makes a model without supports start at its first node.
void AijCodeRoute2::LowerBaseLevel() {
    const double height = Vertical(nodeCoords.back(), zIsVertical);
    if (nodeCoords.size() == 1 || (nodeSupported.back() && height < baseLevel)) baseLevel = height;
}

bool AijCodeRoute2::SetMemberInfo() {
    LogStart(logFile, "member info");
    ReadMemberNumbers();
    for (const std::int32_t member : memberNumbers) {
        const MemberEnds ends = AskMemberEnds(*hostLink, member, Nodes());
        const double beta = hostLink->GetMemberRotationAngle(member);
        if (!ends.BothFound()) {
            Warn(WarningKind::kNodeMissingForMember);
            return false;
        }
        const auto axes =
            FormMemberAxes(nodeCoords[*ends.start], nodeCoords[*ends.end], beta, zIsVertical);
        if (!axes) {
            // The whole length is tested; only the wording speaks of x coordinates.
            Warn(WarningKind::kMemberWithoutLength);
            return false;
        }
        memberAxisX.push_back(axes->x);
        memberAxisY.push_back(axes->y);
        memberAxisZ.push_back(axes->z);
    }
    LogEnd(logFile, "member info");
    return true;
}

void AijCodeRoute2::ReadMemberNumbers() {
    std::vector<std::int32_t> list(static_cast<std::size_t>(hostLink->GetMemberCount()));
    hostLink->GetMemberList(list);
    for (auto* const vectors : {&memberAxisX, &memberAxisY, &memberAxisZ})
        vectors->reserve(list.size());
    memberNumbers.reserve(list.size());
    memberEndNodes.reserve(list.size());
    for (const std::int32_t member : list) {
        // Every member is asked for before any is used; the answer comes again later.
        std::array<std::int32_t, 2> endNodes{};
        hostLink->GetMemberIncidence(member, endNodes[0], endNodes[1]);
        memberNumbers.push_back(member);
        memberEndNodes.push_back(endNodes);
    }
}
