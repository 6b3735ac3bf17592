#include "host/remembering_host.h"

#include <algorithm>

namespace {

// The remembered value, asked for when there is none yet. A failed question stores nothing.
template <typename Value, typename Ask>
const Value& Remember(std::optional<Value>& remembered, const Ask& ask) {
    if (!remembered) remembered = ask();
    return *remembered;
}

// The same for one field of a node or member. What the host refuses to answer about is not added:
// a replay of the memory refuses it, too.
template <typename Record, typename Value, typename Ask, typename Add>
Value RememberField(std::vector<Record>& records, std::optional<std::size_t> position,
                    std::optional<Value> Record::*field, const Ask& ask, const Add& add) {
    if (position && records[*position].*field) return *(records[*position].*field);
    const Value answer = ask();
    records[add()].*field = answer;
    return answer;
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

template <typename Ask, typename Add>
std::int16_t RememberSix(AnswerTable& table, std::optional<std::size_t> position,
                         std::int32_t loadCase, SixDoubles& values, const Ask& ask,
                         const Add& add) {
    if (const SixDoubles* answer = position ? table.Find(*position, loadCase) : nullptr) {
        values = *answer;
        return kAnswered;
    }
    const std::int16_t result = ask();
    table.Store(add(), loadCase, values);
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
    const auto ask = [&] {
        std::array<double, 3> asked{};
        host_.GetNodeCoordinates(node, asked[0], asked[1], asked[2]);
        return asked;
    };
    const auto xyz = RememberField(memory_.nodes, memory_.FindNode(node), &RecordedNode::xyz, ask,
                                   [&] { return memory_.AddNode(node); });
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
    const auto ask = [&] {
        RecordedMember::EndNodes asked{};
        host_.GetMemberIncidence(member, asked.start, asked.end);
        return asked;
    };
    const auto ends =
        RememberField(memory_.members, memory_.FindMember(member), &RecordedMember::endNodes, ask,
                      [&] { return memory_.AddMember(member); });
    startNode = ends.start;
    endNode = ends.end;
}

bool RememberingHost::IsZUp() {
    return Remember(memory_.zUp, [&] { return host_.IsZUp(); });
}

double RememberingHost::GetMemberRotationAngle(std::int32_t member) {
    return RememberField(
        memory_.members, memory_.FindMember(member), &RecordedMember::beta,
        [&] { return host_.GetMemberRotationAngle(member); },
        [&] { return memory_.AddMember(member); });
}

std::int32_t RememberingHost::GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                             SixDoubles& values) {
    codes = {};
    values = {};
    return RememberField(
        memory_.nodes, memory_.FindNode(node), &RecordedNode::support,
        [&] { return host_.GetSupportInfo(node, codes, values); },
        [&] { return memory_.AddNode(node); });
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
    return RememberSix(
        memory_.displacements, memory_.FindNode(node), loadCase, displacements,
        [&] { return host_.GetNodeDisplacements(node, loadCase, displacements); },
        [&] { return memory_.AddNode(node); });
}

std::int16_t RememberingHost::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                                 std::int32_t loadCase, SixDoubles& forces) {
    if (end != 0 && end != 1) return host_.GetMemberEndForces(member, end, loadCase, forces);
    return RememberSix(
        memory_.endForces[static_cast<std::size_t>(end)], memory_.FindMember(member), loadCase,
        forces, [&] { return host_.GetMemberEndForces(member, end, loadCase, forces); },
        [&] { return memory_.AddMember(member); });
}

bool RememberingHost::AreResultsAvailable() {
    return Remember(memory_.resultsAvailable, [&] { return host_.AreResultsAvailable(); });
}
