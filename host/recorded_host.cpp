#include "host/recorded_host.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::int32_t kFailed = static_cast<std::int32_t>(0x80004005);  // E_FAIL

[[noreturn]] void Fail(const char* query, const std::string& why) {
    throw HostCallError(kFailed, std::string(query) + ": " + why);
}

template <typename Value>
const Value& Answered(const std::optional<Value>& value, const char* query) {
    if (!value) Fail(query, "the recorded model does not hold the answer");
    return *value;
}

void CopyList(const std::optional<std::vector<std::int32_t>>& list, std::span<std::int32_t> to,
              const char* query) {
    const std::vector<std::int32_t>& numbers = Answered(list, query);
    std::copy_n(numbers.begin(), std::min(numbers.size(), to.size()), to.begin());
}

SixDoubles AnswerOrZeros(const AnswerTable& table, std::size_t position, std::int32_t loadCase) {
    const SixDoubles* answer = table.Find(position, loadCase);
    return answer == nullptr ? SixDoubles{} : *answer;
}

}  // namespace

RecordedHost::RecordedHost(const RecordedModel& model, std::string modelFilePath)
    : model_(model), modelFilePath_(std::move(modelFilePath)) {}

std::size_t RecordedHost::NodePosition(std::int32_t number, const char* query) const {
    const auto position = model_.FindNode(number);
    if (!position) Fail(query, "node " + std::to_string(number) + " is not in the model");
    return *position;
}

std::size_t RecordedHost::MemberPosition(std::int32_t number, const char* query) const {
    const auto position = model_.FindMember(number);
    if (!position) Fail(query, "member " + std::to_string(number) + " is not in the model");
    return *position;
}

const RecordedNode& RecordedHost::Node(std::int32_t number, const char* query) const {
    return model_.nodes[NodePosition(number, query)];
}

const RecordedMember& RecordedHost::Member(std::int32_t number, const char* query) const {
    return model_.members[MemberPosition(number, query)];
}

std::string RecordedHost::GetModelFilePath() {
    return modelFilePath_;
}

void RecordedHost::PostConnectCall() {}

std::int32_t RecordedHost::GetBaseUnitSystem() {
    return Answered(model_.baseUnitSystem, "GetBaseUnitSystem");
}

std::int32_t RecordedHost::GetNodeCount() {
    return Answered(model_.nodeCount, "GetNodeCount");
}

void RecordedHost::GetNodeList(std::span<std::int32_t> numbers) {
    CopyList(model_.nodeList, numbers, "GetNodeList");
}

void RecordedHost::GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) {
    constexpr const char* kQuery = "GetNodeCoordinates";
    const auto& xyz = Answered(Node(node, kQuery).xyz, kQuery);
    x = xyz[0];
    y = xyz[1];
    z = xyz[2];
}

std::int32_t RecordedHost::GetMemberCount() {
    return Answered(model_.memberCount, "GetMemberCount");
}

void RecordedHost::GetMemberList(std::span<std::int32_t> numbers) {
    CopyList(model_.memberList, numbers, "GetMemberList");
}

void RecordedHost::GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                                      std::int32_t& endNode) {
    constexpr const char* kQuery = "GetMemberIncidence";
    const auto& ends = Answered(Member(member, kQuery).endNodes, kQuery);
    startNode = ends.start;
    endNode = ends.end;
}

bool RecordedHost::IsZUp() {
    return Answered(model_.zUp, "IsZUp");
}

double RecordedHost::GetMemberRotationAngle(std::int32_t member) {
    constexpr const char* kQuery = "GetMemberRotationAngle";
    return Answered(Member(member, kQuery).beta, kQuery);
}

std::int32_t RecordedHost::GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                          SixDoubles& values) {
    constexpr const char* kQuery = "GetSupportInfo";
    codes = {};
    values = {};
    return Answered(Node(node, kQuery).support, kQuery);
}

std::int32_t RecordedHost::GetPrimaryLoadCaseCount() {
    return Answered(model_.primaryLoadCaseCount, "GetPrimaryLoadCaseCount");
}

std::int32_t RecordedHost::GetLoadCombinationCount() {
    return Answered(model_.loadCombinationCount, "GetLoadCombinationCount");
}

std::int16_t RecordedHost::GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) {
    CopyList(model_.primaryLoadCases, numbers, "GetPrimaryLoadCaseNumbers");
    return 1;
}

std::int16_t RecordedHost::GetLoadCombinationNumbers(std::span<std::int32_t> numbers) {
    CopyList(model_.loadCombinations, numbers, "GetLoadCombinationNumbers");
    return 1;
}

std::int16_t RecordedHost::GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                                SixDoubles& displacements) {
    const std::size_t position = NodePosition(node, "GetNodeDisplacements");
    displacements = AnswerOrZeros(model_.displacements, position, loadCase);
    return 1;
}

std::int16_t RecordedHost::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                              std::int32_t loadCase, SixDoubles& forces) {
    constexpr const char* kQuery = "GetMemberEndForces";
    const std::size_t position = MemberPosition(member, kQuery);
    if (end != 0 && end != 1) Fail(kQuery, "end " + std::to_string(end) + " is neither 0 nor 1");
    const AnswerTable& ofEnd = model_.endForces[static_cast<std::size_t>(end)];
    forces = AnswerOrZeros(ofEnd, position, loadCase);
    return 1;
}

bool RecordedHost::AreResultsAvailable() {
    return Answered(model_.resultsAvailable, "AreResultsAvailable");
}
