#include "bench/question_counter.h"

#include <chrono>

namespace {

// Adds its own lifetime to `seconds`.
class StopWatch {
public:
    explicit StopWatch(double& seconds) : seconds_(seconds) {}
    ~StopWatch() {
        seconds_ +=
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }
    StopWatch(const StopWatch&) = delete;
    StopWatch& operator=(const StopWatch&) = delete;

private:
    double& seconds_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace

std::size_t QuestionCounter::HashOfQuestion::operator()(const Question& question) const {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
    std::uint64_t hash = 0;
    for (const std::int32_t part :
         {question.query, question.first, question.second, question.third}) {
        hash = (hash ^ static_cast<std::uint32_t>(part)) * kFactor;
        hash ^= hash >> 32;
    }
    return static_cast<std::size_t>(hash);
}

template <typename Query>
auto QuestionCounter::Ask(const Question& question, const Query& query) {
    ++asked_;
    distinct_.insert(question);
    if (timesSecondAsking_) {
        const StopWatch watch(secondsOfSecondAsking_);
        query();
    }
    return query();
}

std::string QuestionCounter::GetModelFilePath() {
    return Ask({1}, [&] { return host_.GetModelFilePath(); });
}

void QuestionCounter::PostConnectCall() {
    Ask({2}, [&] { host_.PostConnectCall(); });
}

std::int32_t QuestionCounter::GetBaseUnitSystem() {
    return Ask({3}, [&] { return host_.GetBaseUnitSystem(); });
}

std::int32_t QuestionCounter::GetNodeCount() {
    return Ask({4}, [&] { return host_.GetNodeCount(); });
}

void QuestionCounter::GetNodeList(std::span<std::int32_t> numbers) {
    Ask({5}, [&] { host_.GetNodeList(numbers); });
}

void QuestionCounter::GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) {
    Ask({6, node}, [&] { host_.GetNodeCoordinates(node, x, y, z); });
}

std::int32_t QuestionCounter::GetMemberCount() {
    return Ask({7}, [&] { return host_.GetMemberCount(); });
}

void QuestionCounter::GetMemberList(std::span<std::int32_t> numbers) {
    Ask({8}, [&] { host_.GetMemberList(numbers); });
}

void QuestionCounter::GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                                         std::int32_t& endNode) {
    Ask({9, member}, [&] { host_.GetMemberIncidence(member, startNode, endNode); });
}

bool QuestionCounter::IsZUp() {
    return Ask({10}, [&] { return host_.IsZUp(); });
}

double QuestionCounter::GetMemberRotationAngle(std::int32_t member) {
    return Ask({11, member}, [&] { return host_.GetMemberRotationAngle(member); });
}

std::int32_t QuestionCounter::GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                             SixDoubles& values) {
    return Ask({12, node}, [&] { return host_.GetSupportInfo(node, codes, values); });
}

std::int32_t QuestionCounter::GetPrimaryLoadCaseCount() {
    return Ask({13}, [&] { return host_.GetPrimaryLoadCaseCount(); });
}

std::int32_t QuestionCounter::GetLoadCombinationCount() {
    return Ask({14}, [&] { return host_.GetLoadCombinationCount(); });
}

std::int16_t QuestionCounter::GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) {
    return Ask({15}, [&] { return host_.GetPrimaryLoadCaseNumbers(numbers); });
}

std::int16_t QuestionCounter::GetLoadCombinationNumbers(std::span<std::int32_t> numbers) {
    return Ask({16}, [&] { return host_.GetLoadCombinationNumbers(numbers); });
}

std::int16_t QuestionCounter::GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                                   SixDoubles& displacements) {
    return Ask({17, node, loadCase},
               [&] { return host_.GetNodeDisplacements(node, loadCase, displacements); });
}

std::int16_t QuestionCounter::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                                 std::int32_t loadCase, SixDoubles& forces) {
    return Ask({18, member, end, loadCase},
               [&] { return host_.GetMemberEndForces(member, end, loadCase, forces); });
}

bool QuestionCounter::AreResultsAvailable() {
    return Ask({19}, [&] { return host_.AreResultsAvailable(); });
}
