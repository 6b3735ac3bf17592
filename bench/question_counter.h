#pragma once

#include <cstdint>
#include <unordered_set>

#include "host/host_queries.h"

/// Stands in front of a host, hands every question on and counts: all questions, and the
/// distinct ones among them. Keeps one small record per distinct question.
class QuestionCounter : public HostQueries {
public:
    /// Borrows `host`, which must outlive the counter.
    explicit QuestionCounter(HostQueries& host) : host_(host) {}

    /// From now on asks the host every question a second time, at once, and measures how long
    /// that takes. The second asking does not count.
    void TimeSecondAsking() { timesSecondAsking_ = true; }

    std::uint64_t Asked() const { return asked_; }
    std::uint64_t Distinct() const { return distinct_.size(); }
    double SecondsOfSecondAsking() const { return secondsOfSecondAsking_; }

    std::string GetModelFilePath() override;
    void PostConnectCall() override;
    std::int32_t GetBaseUnitSystem() override;
    std::int32_t GetNodeCount() override;
    void GetNodeList(std::span<std::int32_t> numbers) override;
    void GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) override;
    std::int32_t GetMemberCount() override;
    void GetMemberList(std::span<std::int32_t> numbers) override;
    void GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                            std::int32_t& endNode) override;
    bool IsZUp() override;
    double GetMemberRotationAngle(std::int32_t member) override;
    std::int32_t GetSupportInfo(std::int32_t node, SixIntegers& codes, SixDoubles& values) override;
    std::int32_t GetPrimaryLoadCaseCount() override;
    std::int32_t GetLoadCombinationCount() override;
    std::int16_t GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) override;
    std::int16_t GetLoadCombinationNumbers(std::span<std::int32_t> numbers) override;
    std::int16_t GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                      SixDoubles& displacements) override;
    std::int16_t GetMemberEndForces(std::int32_t member, std::int32_t end, std::int32_t loadCase,
                                    SixDoubles& forces) override;
    bool AreResultsAvailable() override;

private:
    /// A query, by its number among the nineteen, and its arguments.
    struct Question {
        std::int32_t query;
        std::int32_t first = 0;
        std::int32_t second = 0;
        std::int32_t third = 0;
        bool operator==(const Question&) const = default;
    };
    struct HashOfQuestion {
        std::size_t operator()(const Question& question) const;
    };

    template <typename Query>
    auto Ask(const Question& question, const Query& query);

    HostQueries& host_;
    std::uint64_t asked_ = 0;
    bool timesSecondAsking_ = false;
    double secondsOfSecondAsking_ = 0.0;
    std::unordered_set<Question, HashOfQuestion> distinct_;
};
