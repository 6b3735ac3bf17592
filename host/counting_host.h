#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "host/passing_host.h"

/// How much of a building a run will ask about, as far as the host has told by now.
struct ModelCounts {
    std::optional<std::size_t> nodes;
    std::optional<std::size_t> members;
    std::size_t loadCases = 0;  ///< primary ones and combinations
};

/// How far the questions to a host are.
struct QuestionProgress {
    std::size_t answered = 0;
    ModelCounts counts;
};

/// Is told before each question what has been answered until then. What it throws ends the run
/// between two questions: a HostCallError ends it as a failed question would.
using QuestionWatcher = std::function<void(const QuestionProgress&)>;

/// Passes every question on, counts the answers and tells a watcher. Behind a RememberingHost it
/// counts each distinct question once.
class CountingHost : public PassingHost {
public:
    /// Borrows `host`.
    CountingHost(HostQueries& host, QuestionWatcher watcher);

    const QuestionProgress& Progress() const { return progress_; }

    std::int32_t GetNodeCount() override;
    std::int32_t GetMemberCount() override;
    std::int32_t GetPrimaryLoadCaseCount() override;
    std::int32_t GetLoadCombinationCount() override;

protected:
    void BeforeQuestion() override;

private:
    QuestionWatcher watcher_;
    QuestionProgress progress_;
    std::size_t asked_ = 0;
    std::size_t primaryCases_ = 0;
    std::size_t combinations_ = 0;
};

/// What a run asks a host that is asked each distinct question once: an estimate, for how many
/// members a story's plane cuts, and how many nodes are a column's end, shows only later. 0 while
/// not even the nodes are counted; until the members are, two of them are expected for each node.
std::size_t ExpectedQuestionsOfRun(const ModelCounts& counts);

/// What AskForEverything (host/recording.h) asks, whatever the run before has asked.
std::size_t ExpectedQuestionsOfEverything(const ModelCounts& counts);

/// The part of the work that is done, 0 to 1, of which nothing is taken back. It keeps moving when
/// more is asked than was expected, and reaches 1 only when the caller says that the run has ended.
double ShareDone(std::size_t answered, std::size_t expected);
