#include "host/remembering_host.h"

#include <algorithm>

namespace {

// The remembered value, asked for when there is none yet. A failed question stores nothing.
template <typename Value, typename Ask>
const Value& Remember(std::optional<Value>& remembered, const Ask& ask) {
    if (!remembered) remembered = ask();
    return *remembered;
}

template <typename Ask>
void RememberList(std::optional<std::vector<std::int32_t>>& remembered,
                  std::span<std::int32_t> numbers, const Ask& ask) {
    if (!remembered || remembered->size() != numbers.size()) {
        ask(numbers);
        remembered.emplace(numbers.begin(), numbers.end());
    }
    std::copy(remembered->begin(), remembered->end(), numbers.begin());
}

// The callers have no use for what the host returns beside the six values.
constexpr std::int16_t kAnswered = 1;

template <typename Ask>
std::int16_t RememberSix(AnswerTable& table, std::size_t position, std::int32_t loadCase,
                         SixDoubles& values, const Ask& ask) {
    if (const SixDoubles* answer = table.Find(position, loadCase)) {
        values = *answer;
        return kAnswered;
    }
    const std::int16_t result = ask();
    table.Store(position, loadCase, values);
    return result;
}

}  // namespace

std::string RememberingHost::GetModelFilePath() {
    return Remember(memory_.modelPath, [&] { return host_.GetModelFilePath(); });
}

void RememberingHost::PostConnectCall() {
    host_.PostConnectCall();
}

std::int32_t RememberingHost::GetBaseUnitSystem() {
    return Remember(memory_.baseUnitSystem, [&] { return host_.GetBaseUnitSystem(); });
}

std::int32_t RememberingHost::GetNodeCount() {
    return Remember(memory_.nodeCount, [&] { return host_.GetNodeCount(); });
}

void RememberingHost::GetNodeList(std::span<std::int32_t> numbers) {
    RememberList(memory_.nodeList, numbers, [&](auto list) { host_.GetNodeList(list); });
}

void RememberingHost::GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) {
    const auto& xyz = Remember(memory_.nodes[memory_.AddNode(node)].xyz, [&] {
        std::array<double, 3> asked{};
        host_.GetNodeCoordinates(node, asked[0], asked[1], asked[2]);
        return asked;
    });
    x = xyz[0];
    y = xyz[1];
    z = xyz[2];
}

std::int32_t RememberingHost::GetMemberCount() {
    return Remember(memory_.memberCount, [&] { return host_.GetMemberCount(); });
}

void RememberingHost::GetMemberList(std::span<std::int32_t> numbers) {
    RememberList(memory_.memberList, numbers, [&](auto list) { host_.GetMemberList(list); });
}

void RememberingHost::GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                                         std::int32_t& endNode) {
    const auto& ends = Remember(memory_.members[memory_.AddMember(member)].endNodes, [&] {
        RecordedMember::EndNodes asked{};
        host_.GetMemberIncidence(member, asked.start, asked.end);
        return asked;
    });
    startNode = ends.start;
    endNode = ends.end;
}

bool RememberingHost::IsZUp() {
    return Remember(memory_.zUp, [&] { return host_.IsZUp(); });
}

double RememberingHost::GetMemberRotationAngle(std::int32_t member) {
    return Remember(memory_.members[memory_.AddMember(member)].beta,
                    [&] { return host_.GetMemberRotationAngle(member); });
}

std::int32_t RememberingHost::GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                             SixDoubles& values) {
    codes = {};
    values = {};
    return Remember(memory_.nodes[memory_.AddNode(node)].support,
                    [&] { return host_.GetSupportInfo(node, codes, values); });
}

std::int32_t RememberingHost::GetPrimaryLoadCaseCount() {
    return Remember(memory_.primaryLoadCaseCount, [&] { return host_.GetPrimaryLoadCaseCount(); });
}

std::int32_t RememberingHost::GetLoadCombinationCount() {
    return Remember(memory_.loadCombinationCount, [&] { return host_.GetLoadCombinationCount(); });
}

std::int16_t RememberingHost::GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) {
    RememberList(memory_.primaryLoadCases, numbers,
                 [&](auto list) { host_.GetPrimaryLoadCaseNumbers(list); });
    return kAnswered;
}

std::int16_t RememberingHost::GetLoadCombinationNumbers(std::span<std::int32_t> numbers) {
    RememberList(memory_.loadCombinations, numbers,
                 [&](auto list) { host_.GetLoadCombinationNumbers(list); });
    return kAnswered;
}

std::int16_t RememberingHost::GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                                   SixDoubles& displacements) {
    return RememberSix(memory_.displacements, memory_.AddNode(node), loadCase, displacements,
                       [&] { return host_.GetNodeDisplacements(node, loadCase, displacements); });
}

std::int16_t RememberingHost::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                                 std::int32_t loadCase, SixDoubles& forces) {
    if (end != 0 && end != 1) return host_.GetMemberEndForces(member, end, loadCase, forces);
    return RememberSix(memory_.endForces[static_cast<std::size_t>(end)], memory_.AddMember(member),
                       loadCase, forces,
                       [&] { return host_.GetMemberEndForces(member, end, loadCase, forces); });
}

bool RememberingHost::AreResultsAvailable() {
    return Remember(memory_.resultsAvailable, [&] { return host_.AreResultsAvailable(); });
}
