#include "host/recording.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "platform/native_path.h"
#include "platform/sha256.h"

namespace {

std::string NameOfFile(const std::string& path) {
    const std::u8string name = NativePath(path).filename().u8string();
    return {name.begin(), name.end()};
}

using Numbers = std::vector<std::int32_t>;

// A list of the host's, asked for as a run does.
template <typename Count, typename List>
Numbers Ask(HostQueries& host, Count count, List list) {
    Numbers numbers(static_cast<std::size_t>((host.*count)()));
    (host.*list)(numbers);
    return numbers;
}

Numbers AskForLoadCases(HostQueries& host) {
    Numbers all =
        Ask(host, &HostQueries::GetPrimaryLoadCaseCount, &HostQueries::GetPrimaryLoadCaseNumbers);
    const Numbers combinations =
        Ask(host, &HostQueries::GetLoadCombinationCount, &HostQueries::GetLoadCombinationNumbers);
    all.insert(all.end(), combinations.begin(), combinations.end());
    return all;
}

void AskForTheModel(HostQueries& host) {
    host.GetModelFilePath();
    host.GetBaseUnitSystem();
    host.IsZUp();
    host.AreResultsAvailable();
}

void AskForNode(HostQueries& host, std::int32_t node) {
    double x = 0.0, y = 0.0, z = 0.0;
    SixIntegers codes{};
    SixDoubles values{};
    host.GetNodeCoordinates(node, x, y, z);
    host.GetSupportInfo(node, codes, values);
}

void AskForMember(HostQueries& host, std::int32_t member) {
    std::int32_t start = 0, end = 0;
    host.GetMemberIncidence(member, start, end);
    host.GetMemberRotationAngle(member);
}

// Those of the list, then those that the host has answered about although its list does not have
// them: an input file can name any number.
Numbers MembersAnsweredAbout(const RecordedModel& model) {
    Numbers members;
    for (const RecordedMember& member : model.members)
        if (member.endNodes) members.push_back(member.number);
    return members;
}

}  // namespace

RecordedFor RecordedForInput(const std::string& inputPath) {
    const auto sha256 = Sha256OfFile(inputPath);
    if (!sha256) throw std::runtime_error(inputPath + ": the input file cannot be read");
    return {.everything = false, .inputName = NameOfFile(inputPath), .inputSha256 = *sha256};
}

RecordedFor RecordedForEverything() {
    return {.everything = true, .inputName = {}, .inputSha256 = {}};
}

void AskForOtherEnds(RememberingHost& host) {
    SixDoubles forces{};
    for (const std::int32_t end : {0, 1}) {
        const RecordedModel& model = host.Memory();
        const AnswerTable& asked = model.endForces[static_cast<std::size_t>(end)];
        for (const std::int32_t loadCase : asked.LoadCases())
            for (std::size_t i = 0; i < model.members.size(); ++i)
                if (asked.Find(i, loadCase) != nullptr)
                    host.GetMemberEndForces(model.members[i].number, 1 - end, loadCase, forces);
    }
}

void AskForEverything(RememberingHost& host) {
    AskForTheModel(host);
    const Numbers nodes = Ask(host, &HostQueries::GetNodeCount, &HostQueries::GetNodeList);
    for (const std::int32_t node : nodes)
        AskForNode(host, node);
    for (const std::int32_t member :
         Ask(host, &HostQueries::GetMemberCount, &HostQueries::GetMemberList))
        AskForMember(host, member);

    const Numbers members = MembersAnsweredAbout(host.Memory());
    const Numbers loadCases = AskForLoadCases(host);
    SixDoubles six{};
    for (const std::int32_t loadCase : loadCases) {
        for (const std::int32_t node : nodes) {
            host.GetNodeDisplacements(node, loadCase, six);
        }
        for (const std::int32_t member : members) {
            for (const std::int32_t end : {0, 1}) {
                host.GetMemberEndForces(member, end, loadCase, six);
            }
        }
    }
}
