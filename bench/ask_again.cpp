#include "bench/ask_again.h"

#include <vector>

namespace {

std::uint64_t AskAboutTheModel(HostQueries& host) {
    host.GetModelFilePath();
    host.GetBaseUnitSystem();
    host.IsZUp();
    host.AreResultsAvailable();
    std::vector<std::int32_t> numbers;
    numbers.resize(static_cast<std::size_t>(host.GetPrimaryLoadCaseCount()));
    host.GetPrimaryLoadCaseNumbers(numbers);
    numbers.resize(static_cast<std::size_t>(host.GetLoadCombinationCount()));
    host.GetLoadCombinationNumbers(numbers);
    numbers.resize(static_cast<std::size_t>(host.GetNodeCount()));
    host.GetNodeList(numbers);
    numbers.resize(static_cast<std::size_t>(host.GetMemberCount()));
    host.GetMemberList(numbers);
    constexpr std::uint64_t kFixedQuestions = 12;
    return kFixedQuestions;
}

std::uint64_t AskAboutNodes(const RecordedModel& memory, HostQueries& host) {
    std::uint64_t asked = 0;
    for (const RecordedNode& node : memory.nodes) {
        double x = 0.0, y = 0.0, z = 0.0;
        SixIntegers codes{};
        SixDoubles values{};
        host.GetNodeCoordinates(node.number, x, y, z);
        host.GetSupportInfo(node.number, codes, values);
        asked += 2;
    }
    return asked;
}

std::uint64_t AskAboutMembers(const RecordedModel& memory, HostQueries& host) {
    std::uint64_t asked = 0;
    for (const RecordedMember& member : memory.members) {
        std::int32_t start = 0, end = 0;
        host.GetMemberIncidence(member.number, start, end);
        host.GetMemberRotationAngle(member.number);
        asked += 2;
    }
    return asked;
}

// Calls `ask` with the position and the load case of every answer.
template <typename Ask>
std::uint64_t ForEachAnswer(const AnswerTable& answers, std::size_t positions, const Ask& ask) {
    std::uint64_t asked = 0;
    for (std::size_t position = 0; position < positions; ++position) {
        for (const std::int32_t loadCase : answers.LoadCases()) {
            if (answers.Find(position, loadCase) == nullptr) continue;
            ask(position, loadCase);
            ++asked;
        }
    }
    return asked;
}

std::uint64_t AskAboutResults(const RecordedModel& memory, HostQueries& host) {
    SixDoubles values{};
    std::uint64_t asked =
        ForEachAnswer(memory.displacements, memory.nodes.size(), [&](auto position, auto loadCase) {
            host.GetNodeDisplacements(memory.nodes[position].number, loadCase, values);
        });
    for (const std::int32_t end : {0, 1})
        asked += ForEachAnswer(memory.endForces[static_cast<std::size_t>(end)],
                               memory.members.size(), [&](auto position, auto loadCase) {
                                   host.GetMemberEndForces(memory.members[position].number, end,
                                                           loadCase, values);
                               });
    return asked;
}

}  // namespace

std::uint64_t AskAgain(const RecordedModel& memory, HostQueries& host) {
    return AskAboutTheModel(host) + AskAboutNodes(memory, host) + AskAboutMembers(memory, host) +
           AskAboutResults(memory, host);
}
