#include "host/recorded_host.h"

#include <algorithm>
#include <utility>

#include "host/global_forces.h"
#include "host/units.h"
#include "platform/one_line.h"

namespace {

constexpr std::int32_t kEnglishUnitSystem = 1;
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

constexpr std::size_t kLongestName = 100;

std::string TextOfPurpose(const RecordedFor& purpose) {
    if (purpose.everything)
        return "although it was made with record --all, so the file has been changed; record again "
               "with record --all";
    return "because it was made for the input file " + OneLine(purpose.inputName, kLongestName) +
           "; record again with this run's input file, or with record --all for every input file";
}

}  // namespace

RecordedHost::RecordedHost(const RecordedModel& model, std::string modelFilePath)
    : model_(model), modelFilePath_(std::move(modelFilePath)) {
    for (const auto& list : {model.primaryLoadCases, model.loadCombinations})
        for (const std::int32_t loadCase : list.value_or(std::vector<std::int32_t>{}))
            if (loadCases_.Add(loadCase, loadCaseCount_) == loadCaseCount_) ++loadCaseCount_;
}

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
    const SixDoubles* const answer = model_.displacements.Find(position, loadCase);
    displacements =
        answer != nullptr ? *answer : Unlisted(Quantity::kDisplacements, position, loadCase);
    return 1;
}

std::int16_t RecordedHost::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                              std::int32_t loadCase, SixDoubles& forces) {
    constexpr const char* kQuery = "GetMemberEndForces";
    const std::size_t position = MemberPosition(member, kQuery);
    if (end != 0 && end != 1) Fail(kQuery, "end " + std::to_string(end) + " is neither 0 nor 1");
    const auto place = static_cast<std::size_t>(end);
    if (const SixDoubles* const answer = model_.endForces[place].Find(position, loadCase))
        forces = *answer;
    else if (const SixDoubles* const global =
                 model_.endForcesGlobal[place].Find(position, loadCase))
        forces = TurnedForces(position, *global);
    else
        forces = Unlisted(end == 0 ? Quantity::kForcesAtStart : Quantity::kForcesAtEnd, position,
                          loadCase);
    return 1;
}

SixDoubles RecordedHost::TurnedForces(std::size_t memberPosition, const SixDoubles& global) {
    const auto forces = AlongMemberAxes(global, AxesOf(memberPosition));
    if (!forces)
        Fail("GetMemberEndForces",
             "the forces of member " + std::to_string(model_.members[memberPosition].number) +
                 " are recorded along the global axes and cannot be told along its own, which lie "
                 "in one plane, as those of a level member at 45 degrees to both plan axes do "
                 "where Z is vertical; record them along its own axes (\"endForces\")");
    return *forces;
}

const MemberAxes& RecordedHost::AxesOf(std::size_t memberPosition) {
    constexpr const char* kQuery = "GetMemberEndForces";
    if (axes_.size() < model_.members.size()) axes_.resize(model_.members.size());
    std::optional<MemberAxes>& axes = axes_[memberPosition];
    if (axes) return *axes;
    const RecordedMember& member = model_.members[memberPosition];
    const RecordedMember::EndNodes& ends = Answered(member.endNodes, kQuery);
    axes = FormMemberAxes(PointOf(ends.start), PointOf(ends.end), Answered(member.beta, kQuery),
                          Answered(model_.zUp, kQuery));
    if (!axes)
        Fail(kQuery, "the forces of member " + std::to_string(member.number) +
                         " are recorded along the global axes and cannot be told along its own, "
                         "because it has no length");
    return *axes;
}

Vec3 RecordedHost::PointOf(std::int32_t node) const {
    constexpr const char* kQuery = "GetMemberEndForces";
    const auto& xyz = Answered(Node(node, kQuery).xyz, kQuery);
    const bool isInch = Answered(model_.baseUnitSystem, kQuery) == kEnglishUnitSystem;
    const double factor = isInch ? kMillimetresPerInch : kMillimetresPerMetre;
    return {xyz[0] * factor, xyz[1] * factor, xyz[2] * factor};
}

SixDoubles RecordedHost::Unlisted(Quantity quantity, std::size_t position, std::int32_t loadCase) {
    const auto loadCasePosition = loadCases_.Find(loadCase);
    if (!loadCasePosition) return {};
    if (model_.recordedFor) FailUnlisted(quantity, position, loadCase);
    const bool isHeld =
        quantity == Quantity::kDisplacements && model_.nodes[position].support.value_or(0) != 0;
    if (!isHeld) CountUnlisted(quantity, position, *loadCasePosition);
    return {};
}

void RecordedHost::CountUnlisted(Quantity quantity, std::size_t position,
                                 std::size_t loadCasePosition) {
    std::vector<std::vector<bool>>& rows = unlisted_.at(static_cast<std::size_t>(quantity));
    if (rows.empty()) rows.resize(loadCaseCount_);
    std::vector<bool>& row = rows[loadCasePosition];
    if (position >= row.size()) row.resize(position + 1);
    if (row[position]) return;
    row[position] = true;
    ++unlistedAnswers_;
}

void RecordedHost::FailUnlisted(Quantity quantity, std::size_t position,
                                std::int32_t loadCase) const {
    const bool isNode = quantity == Quantity::kDisplacements;
    std::string asked =
        isNode ? "the displacements of node " + std::to_string(model_.nodes[position].number)
               : std::string("the forces at the ") +
                     (quantity == Quantity::kForcesAtStart ? "start (0)" : "end (1)") +
                     " of member " + std::to_string(model_.members[position].number);
    asked += " under load case " + std::to_string(loadCase);
    const RecordedFor& purpose = *model_.recordedFor;
    throw MissingAnswerError(
        kFailed,
        std::string(isNode ? "GetNodeDisplacements" : "GetMemberEndForces") +
            ": the recording does not hold " + asked + ", " + TextOfPurpose(purpose),
        asked, purpose.everything ? std::string() : OneLine(purpose.inputName, kLongestName));
}

bool RecordedHost::AreResultsAvailable() {
    return Answered(model_.resultsAvailable, "AreResultsAvailable");
}
