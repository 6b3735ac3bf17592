#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/host_queries.h"
#include "host/number_positions.h"

/// Six values per position (of a node or a member) and load case.
///
/// Positions go in pages of some hundred. A row per load case that has an answer says which page
/// has which; a page holds its answers one behind the other and a small index of them. Memory grows
/// with the number of answers, also when each of many load cases has one for a late position.
class AnswerTable {
public:
    /// Null when there is no answer; good until the next Store.
    const SixDoubles* Find(std::size_t position, std::int32_t loadCase) const;

    /// Keeps an answer in the place of the one before, if there was one.
    void Store(std::size_t position, std::int32_t loadCase, const SixDoubles& answer);

    /// Number of answers.
    std::size_t size() const { return size_; }

    /// Load cases that have an answer, ascending.
    std::vector<std::int32_t> LoadCases() const;

    /// Calls `visit(position, loadCase, answer)` for every answer.
    template <typename Visit>
    void ForEach(const Visit& visit) const {
        for (std::size_t i = 0; i < rows_.size(); ++i)
            for (std::size_t place = 0; place < rows_[i].size(); ++place)
                if (rows_[i][place] != kNoPage)
                    VisitPage(pages_[rows_[i][place]], place, loadCases_[i], visit);
    }

private:
    static constexpr std::uint16_t kNoAnswer = 0xFFFF;
    static constexpr std::uint32_t kNoPage = 0xFFFFFFFF;
    static constexpr std::size_t kPositionsPerPage = 512;

    struct Page {
        std::vector<std::uint16_t> slots;  ///< per position: its place in `answers`, if any
        std::vector<SixDoubles> answers;
    };
    using Row = std::vector<std::uint32_t>;  ///< places in pages_, if any

    template <typename Visit>
    static void VisitPage(const Page& page, std::size_t place, std::int32_t loadCase,
                          const Visit& visit) {
        for (std::size_t i = 0; i < kPositionsPerPage; ++i)
            if (page.slots[i] != kNoAnswer)
                visit(place * kPositionsPerPage + i, loadCase, page.answers[page.slots[i]]);
    }

    Page& PageOf(std::size_t position, std::int32_t loadCase);

    NumberPositions rowPositions_;         ///< of loadCases_ and rows_, by load case
    std::vector<std::int32_t> loadCases_;  ///< in the order of their first answers
    std::vector<Row> rows_;
    std::vector<Page> pages_;
    std::size_t size_ = 0;
};

/// What the host has said about one node. Lengths in the host's base unit.
struct RecordedNode {
    std::int32_t number = 0;
    std::optional<std::array<double, 3>> xyz;
    std::optional<std::int32_t> support;  ///< non-zero: supported
};

/// What the host has said about one member.
struct RecordedMember {
    struct EndNodes {
        std::int32_t start;
        std::int32_t end;
    };
    std::int32_t number = 0;
    std::optional<EndNodes> endNodes;
    std::optional<double> beta;  ///< degrees, a single-precision value
};

/// Which run a recording was made for. It holds what that run has asked, and another question about
/// the model may not be answered with zeros.
struct RecordedFor {
    bool everything = false;  ///< no run in particular: all questions there are have been asked
    std::string inputName;    ///< otherwise: name of the run's input file, without folder, UTF-8
    std::string inputSha256;  ///< of its bytes, 64 lower-case hexadecimal digits
};

/// What nodes, members and load cases are called where a model comes from, by number, UTF-8. Only
/// those that have another name than their number.
struct RecordedNames {
    std::map<std::int32_t, std::string> nodes;
    std::map<std::int32_t, std::string> members;
    std::map<std::int32_t, std::string> loadCases;

    bool Any() const { return !nodes.empty() || !members.empty() || !loadCases.empty(); }
};

/// What a host has answered about one model: what a run remembers, what a recording saves and what
/// a recorded host answers from. Everything is in the host's own units and numbers; what has not
/// been answered has no value.
///
/// `nodes` and `members` hold each number once, in the order in which it was first mentioned; the
/// lists are as the host gave them and may hold a number twice.
class RecordedModel {
public:
    std::optional<std::string> modelPath;  ///< on the machine of the host; empty: it has none
    std::optional<std::int32_t> baseUnitSystem;
    std::optional<bool> zUp;
    std::optional<bool> resultsAvailable;

    /// Without a value, displacements and end forces that are not there are zeros.
    std::optional<RecordedFor> recordedFor;

    std::string source;  ///< where a model that no host has answered about comes from, for people
    RecordedNames names;

    std::optional<std::int32_t> nodeCount;
    std::optional<std::int32_t> memberCount;
    std::optional<std::int32_t> primaryLoadCaseCount;
    std::optional<std::int32_t> loadCombinationCount;

    std::optional<std::vector<std::int32_t>> nodeList;
    std::optional<std::vector<std::int32_t>> memberList;
    std::optional<std::vector<std::int32_t>> primaryLoadCases;
    std::optional<std::vector<std::int32_t>> loadCombinations;

    std::vector<RecordedNode> nodes;
    std::vector<RecordedMember> members;

    AnswerTable displacements;             ///< by position in nodes
    std::array<AnswerTable, 2> endForces;  ///< [0] start, [1] end; by position in members

    /// The same with forces along the global axes, as they come from elsewhere than a host. A
    /// member has answers in one of both only.
    std::array<AnswerTable, 2> endForcesGlobal;

    /// Number of a member that has answers in both all the same.
    std::optional<std::int32_t> MemberWithBothKindsOfForces() const;

    /// Position in `nodes` or `members`; a number that is not there has none.
    std::optional<std::size_t> FindNode(std::int32_t number) const {
        return nodePositions_.Find(number);
    }
    std::optional<std::size_t> FindMember(std::int32_t number) const {
        return memberPositions_.Find(number);
    }

    /// The same; a number that is not there is added.
    std::size_t AddNode(std::int32_t number);
    std::size_t AddMember(std::int32_t number);

private:
    NumberPositions nodePositions_;
    NumberPositions memberPositions_;
};
