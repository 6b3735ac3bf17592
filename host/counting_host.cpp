#include "host/counting_host.h"

#include <utility>

namespace {

// Questions about the model as a whole: path, units, axes, counts, lists.
constexpr std::size_t kQuestionsAboutTheModel = 12;

// A host that answers a negative number of anything fails elsewhere, in words.
std::size_t Count(std::int32_t answer) {
    return answer > 0 ? static_cast<std::size_t>(answer) : 0;
}

// All nodes are asked about before the members are counted.
std::size_t MembersExpected(const ModelCounts& counts) {
    return counts.members.value_or(2 * *counts.nodes);
}

std::size_t QuestionsOfGeometry(const ModelCounts& counts) {
    // Coordinates and support of each node, incidence and rotation of each member.
    return kQuestionsAboutTheModel + 2 * *counts.nodes + 2 * MembersExpected(counts);
}

}  // namespace

CountingHost::CountingHost(HostQueries& host, QuestionWatcher watcher)
    : PassingHost(host), watcher_(std::move(watcher)) {}

void CountingHost::BeforeQuestion() {
    progress_.answered = asked_;
    watcher_(progress_);
    ++asked_;
}

std::int32_t CountingHost::GetNodeCount() {
    const std::int32_t count = PassingHost::GetNodeCount();
    progress_.counts.nodes = Count(count);
    return count;
}

std::int32_t CountingHost::GetMemberCount() {
    const std::int32_t count = PassingHost::GetMemberCount();
    progress_.counts.members = Count(count);
    return count;
}

std::int32_t CountingHost::GetPrimaryLoadCaseCount() {
    const std::int32_t count = PassingHost::GetPrimaryLoadCaseCount();
    primaryCases_ = Count(count);
    progress_.counts.loadCases = primaryCases_ + combinations_;
    return count;
}

std::int32_t CountingHost::GetLoadCombinationCount() {
    const std::int32_t count = PassingHost::GetLoadCombinationCount();
    combinations_ = Count(count);
    progress_.counts.loadCases = primaryCases_ + combinations_;
    return count;
}

std::size_t ExpectedQuestionsOfRun(const ModelCounts& counts) {
    if (!counts.nodes) return 0;
    // Displacements of the nodes, under every load case; end forces of the members that a story's
    // plane cuts, at one end, under dead load and both earthquakes: seven for every five members,
    // in buildings of beams and columns.
    return QuestionsOfGeometry(counts) + *counts.nodes * counts.loadCases +
           7 * MembersExpected(counts) / 5;
}

std::size_t ExpectedQuestionsOfEverything(const ModelCounts& counts) {
    if (!counts.nodes) return 0;
    return QuestionsOfGeometry(counts) +
           counts.loadCases * (*counts.nodes + 2 * MembersExpected(counts));
}

double ShareDone(std::size_t answered, std::size_t expected) {
    // Up to here the estimate counts; what comes beyond halves the rest each time that as much as
    // that rest was expected to be is answered, and so never stands still.
    constexpr double kTrusted = 0.9;
    if (expected == 0) return 0.0;
    const double share = static_cast<double>(answered) / static_cast<double>(expected);
    if (share <= kTrusted) return share;
    const double rest = 1.0 - kTrusted;
    return 1.0 - rest / (1.0 + (share - kTrusted) / rest);
}
