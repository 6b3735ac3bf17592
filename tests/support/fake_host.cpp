#include "tests/support/fake_host.h"

#include <algorithm>

namespace {

constexpr std::int32_t kFailed = static_cast<std::int32_t>(0x80004005);

std::string Call(const char* query) {
    return std::string(query) + "()";
}

template <typename... Numbers>
std::string Call(const char* query, std::int32_t first, Numbers... rest) {
    std::string text = std::string(query) + "(" + std::to_string(first);
    ((text += ", " + std::to_string(rest)), ...);
    return text + ")";
}

template <typename Records>
const auto& FindFirst(const Records& records, std::int32_t number, const char* kind) {
    for (const auto& record : records)
        if (record.number == number) return record;
    throw HostCallError(kFailed, std::string(kind) + " " + std::to_string(number) + " is unknown");
}

void CopyNumbers(const std::vector<std::int32_t>& from, std::span<std::int32_t> to) {
    std::copy_n(from.begin(), std::min(from.size(), to.size()), to.begin());
}

template <typename Records>
void CopyNumbersOf(const Records& records, std::span<std::int32_t> to) {
    for (std::size_t i = 0; i < std::min(records.size(), to.size()); ++i)
        to[i] = records[i].number;
}

}  // namespace

FakeHost& FakeHost::Node(std::int32_t number, double x, double y, double z, bool supported) {
    nodes_.push_back({number, x, y, z, supported});
    return *this;
}

FakeHost& FakeHost::Member(std::int32_t number, std::int32_t start, std::int32_t end, float beta) {
    members_.push_back({number, start, end, beta});
    return *this;
}

FakeHost& FakeHost::Displace(std::int32_t loadCase, std::int32_t node, double x, double y,
                             double z) {
    displacements_[{loadCase, node}] = {x, y, z, 0.0, 0.0, 0.0};
    return *this;
}

FakeHost& FakeHost::Force(std::int32_t loadCase, std::int32_t member, std::int32_t end, double f0,
                          double f1, double f2) {
    forces_[{loadCase, member, end}] = {f0, f1, f2, 0.0, 0.0, 0.0};
    return *this;
}

void FakeHost::WriteDown(const std::string& call) {
    calls.push_back(call);
    if (failAtCall && calls.size() >= *failAtCall)
        throw HostCallError(kFailed, call + " failed on demand");
}

const FakeHost::FakeNode& FakeHost::FindNode(std::int32_t number) const {
    return FindFirst(nodes_, number, "node");
}

const FakeHost::FakeMember& FakeHost::FindMember(std::int32_t number) const {
    return FindFirst(members_, number, "member");
}

std::string FakeHost::GetModelFilePath() {
    WriteDown(Call("GetModelFilePath"));
    return modelPath;
}

void FakeHost::PostConnectCall() {
    WriteDown(Call("PostConnectCall"));
}

std::int32_t FakeHost::GetBaseUnitSystem() {
    WriteDown(Call("GetBaseUnitSystem"));
    return baseUnitSystem;
}

std::int32_t FakeHost::GetNodeCount() {
    WriteDown(Call("GetNodeCount"));
    return static_cast<std::int32_t>(nodes_.size());
}

void FakeHost::GetNodeList(std::span<std::int32_t> numbers) {
    WriteDown(Call("GetNodeList"));
    CopyNumbersOf(nodes_, numbers);
}

void FakeHost::GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) {
    WriteDown(Call("GetNodeCoordinates", node));
    const FakeNode& found = FindNode(node);
    x = found.x;
    y = found.y;
    z = found.z;
}

std::int32_t FakeHost::GetMemberCount() {
    WriteDown(Call("GetMemberCount"));
    return static_cast<std::int32_t>(members_.size());
}

void FakeHost::GetMemberList(std::span<std::int32_t> numbers) {
    WriteDown(Call("GetMemberList"));
    CopyNumbersOf(members_, numbers);
}

void FakeHost::GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                                  std::int32_t& endNode) {
    WriteDown(Call("GetMemberIncidence", member));
    const FakeMember& found = FindMember(member);
    startNode = found.start;
    endNode = found.end;
}

bool FakeHost::IsZUp() {
    WriteDown(Call("IsZUp"));
    return zUp;
}

double FakeHost::GetMemberRotationAngle(std::int32_t member) {
    WriteDown(Call("GetMemberRotationAngle", member));
    return static_cast<double>(FindMember(member).beta);
}

std::int32_t FakeHost::GetSupportInfo(std::int32_t node, SixIntegers& codes, SixDoubles& values) {
    WriteDown(Call("GetSupportInfo", node));
    codes = {};
    values = {};
    return FindNode(node).supported ? 1 : 0;
}

std::int32_t FakeHost::GetPrimaryLoadCaseCount() {
    WriteDown(Call("GetPrimaryLoadCaseCount"));
    return static_cast<std::int32_t>(primaryLoadCases.size());
}

std::int32_t FakeHost::GetLoadCombinationCount() {
    WriteDown(Call("GetLoadCombinationCount"));
    return static_cast<std::int32_t>(loadCombinations.size());
}

std::int16_t FakeHost::GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) {
    WriteDown(Call("GetPrimaryLoadCaseNumbers"));
    CopyNumbers(primaryLoadCases, numbers);
    return 1;
}

std::int16_t FakeHost::GetLoadCombinationNumbers(std::span<std::int32_t> numbers) {
    WriteDown(Call("GetLoadCombinationNumbers"));
    CopyNumbers(loadCombinations, numbers);
    return 1;
}

std::int16_t FakeHost::GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                            SixDoubles& displacements) {
    WriteDown(Call("GetNodeDisplacements", node, loadCase));
    FindNode(node);
    const auto found = displacements_.find({loadCase, node});
    displacements = found == displacements_.end() ? SixDoubles{} : found->second;
    return 1;
}

std::int16_t FakeHost::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                          std::int32_t loadCase, SixDoubles& forces) {
    WriteDown(Call("GetMemberEndForces", member, end, loadCase));
    FindMember(member);
    const auto found = forces_.find({loadCase, member, end});
    forces = found == forces_.end() ? SixDoubles{} : found->second;
    return 1;
}

bool FakeHost::AreResultsAvailable() {
    WriteDown(Call("AreResultsAvailable"));
    return resultsAvailable;
}
