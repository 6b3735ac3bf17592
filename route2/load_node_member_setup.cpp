// Setup from the host: load case numbers, nodes and base level, members and their local axes.

#include <algorithm>
#include <cmath>

#include "host/member_axes.h"
#include "host/units.h"
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
    std::vector<std::int32_t> list(static_cast<std::size_t>(hostLink->GetNodeCount()));
    hostLink->GetNodeList(list);
    nodeNumbers.reserve(list.size());
    nodeCoords.reserve(list.size());
    for (const std::int32_t node : list) {
        // The host is asked for every node before any is used; the answer comes again below.
        double x = 0.0, y = 0.0, z = 0.0;
        hostLink->GetNodeCoordinates(node, x, y, z);
        nodeNumbers.push_back(node);
    }
    nodePositions_ = NumberIndex(nodeNumbers);

    double base = 0.0;
    for (const std::int32_t node : nodeNumbers) {
        Vec3 point;
        hostLink->GetNodeCoordinates(node, point.x, point.y, point.z);
        const double factor = MillimetresPerHostLength();
        point = {point.x * factor, point.y * factor, point.z * factor};
        // The first node of the list takes part in the base level even without a support: this is
        // intended, and makes a model without supports start at its first node.
        if (nodeCoords.empty()) base = Vertical(point);
        nodeCoords.push_back(point);

        SixIntegers codes{};
        SixDoubles values{};
        const bool isSupported = hostLink->GetSupportInfo(node, codes, values) != 0;
        if (isSupported && Vertical(point) < base) base = Vertical(point);
    }
    baseLevel = base;
    nodeInfoSet = true;
    LogEnd(logFile, "node info");
}

bool AijCodeRoute2::SetMemberInfo() {
    LogStart(logFile, "member info");
    std::vector<std::int32_t> list(static_cast<std::size_t>(hostLink->GetMemberCount()));
    hostLink->GetMemberList(list);
    memberNumbers.reserve(list.size());
    memberAxisX.reserve(list.size());
    memberAxisY.reserve(list.size());
    memberAxisZ.reserve(list.size());
    for (const std::int32_t member : list) {
        std::int32_t startNode = 0, endNode = 0;
        hostLink->GetMemberIncidence(member, startNode, endNode);
        memberNumbers.push_back(member);
    }

    for (const std::int32_t member : memberNumbers) {
        const MemberEnds ends = AskMemberEnds(member);
        const double beta = hostLink->GetMemberRotationAngle(member);
        if (!ends.BothFound()) {
            LogWarning(logFile, "Node number is not set correctly. Stops setting member info...");
            return false;
        }
        const auto axes =
            FormMemberAxes(nodeCoords[*ends.start], nodeCoords[*ends.end], beta, zIsVertical);
        if (!axes) {
            // The whole length is tested; only the wording speaks of x coordinates.
            LogWarning(logFile,
                       "Difference of x coordinates between start and end nodes is equal zero. "
                       "Stops setting member info...");
            return false;
        }
        memberAxisX.push_back(axes->x);
        memberAxisY.push_back(axes->y);
        memberAxisZ.push_back(axes->z);
    }
    LogEnd(logFile, "member info");
    return true;
}
