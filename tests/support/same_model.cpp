#include "tests/support/same_model.h"

#include <cstring>
#include <optional>

#include "host/recorded_host.h"

namespace {

// Bit by bit: 0 and -0 differ.
bool AreSame(const SixDoubles& a, const SixDoubles& b) {
    return std::memcmp(a.data(), b.data(), sizeof a) == 0;
}

// The forces that a host tells; nothing where it cannot.
std::optional<SixDoubles> ForcesOf(RecordedHost& host, std::int32_t member, std::int32_t end,
                                   std::int32_t loadCase) {
    SixDoubles forces{};
    try {
        host.GetMemberEndForces(member, end, loadCase, forces);
    } catch (const HostCallError&) {
        return std::nullopt;
    }
    return forces;
}

std::string Under(const char* what, std::int32_t number, std::int32_t loadCase) {
    return std::string(what) + " " + std::to_string(number) + " under case " +
           std::to_string(loadCase);
}

std::string DifferenceOfNodes(const RecordedModel& one, const RecordedModel& other) {
    for (const std::int32_t number : *one.nodeList) {
        const RecordedNode& a = one.nodes[*one.FindNode(number)];
        const RecordedNode& b = other.nodes[*other.FindNode(number)];
        if (std::memcmp(a.xyz->data(), b.xyz->data(), sizeof *a.xyz) != 0)
            return "coordinates of node " + std::to_string(number);
        if (a.support.value_or(0) != b.support.value_or(0))
            return "support of node " + std::to_string(number);
    }
    return {};
}

std::string DifferenceOfMembers(const RecordedModel& one, const RecordedModel& other) {
    for (const std::int32_t number : *one.memberList) {
        const RecordedMember& a = one.members[*one.FindMember(number)];
        const RecordedMember& b = other.members[*other.FindMember(number)];
        if (a.endNodes->start != b.endNodes->start || a.endNodes->end != b.endNodes->end ||
            a.beta.value_or(0.0) != b.beta.value_or(0.0))
            return "member " + std::to_string(number);
    }
    return {};
}

std::string DifferenceOfAnswers(const RecordedModel& one, const RecordedModel& other,
                                std::int32_t loadCase) {
    RecordedHost hostOne(one, "model.qhm"), hostOther(other, "model.qhm");
    for (const std::int32_t number : *one.nodeList) {
        SixDoubles a{}, b{};
        hostOne.GetNodeDisplacements(number, loadCase, a);
        hostOther.GetNodeDisplacements(number, loadCase, b);
        if (!AreSame(a, b)) return Under("displacements of node", number, loadCase);
    }
    for (const std::int32_t number : *one.memberList)
        for (const std::int32_t end : {0, 1}) {
            const auto a = ForcesOf(hostOne, number, end, loadCase);
            const auto b = ForcesOf(hostOther, number, end, loadCase);
            if (a.has_value() != b.has_value() || (a && !AreSame(*a, *b)))
                return Under(end == 0 ? "start of member" : "end of member", number, loadCase);
        }
    return {};
}

}  // namespace

std::string DifferenceOf(const RecordedModel& one, const RecordedModel& other) {
    if (one.zUp != other.zUp) return "vertical axis";
    if (one.baseUnitSystem != other.baseUnitSystem) return "unit system";
    if (one.resultsAvailable != other.resultsAvailable) return "results available";
    if (one.modelPath != other.modelPath) return "model path";
    if (one.nodeList != other.nodeList) return "list of nodes";
    if (one.memberList != other.memberList) return "list of members";
    if (one.primaryLoadCases != other.primaryLoadCases) return "primary load cases";
    if (one.loadCombinations != other.loadCombinations) return "load combinations";
    std::string difference = DifferenceOfNodes(one, other);
    if (difference.empty()) difference = DifferenceOfMembers(one, other);
    for (const auto* cases : {&*one.primaryLoadCases, &*one.loadCombinations})
        for (const std::int32_t loadCase : *cases)
            if (difference.empty()) difference = DifferenceOfAnswers(one, other, loadCase);
    if (difference.empty() && one.source != other.source) return "source";
    if (difference.empty() &&
        (one.names.nodes != other.names.nodes || one.names.members != other.names.members ||
         one.names.loadCases != other.names.loadCases))
        return "names";
    return difference;
}
