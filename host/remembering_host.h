#pragma once

#include <utility>

#include "host/host_queries.h"
#include "host/recorded_model.h"

/// Stands in front of another host for one run, asks it each distinct question once and answers
/// repeats from memory.
///
/// The checks ask for the same incidences and end forces step after step, and with a live host
/// every question is a call into another process. Questions reach the host in the order in which
/// they are first asked. A failed call is not remembered. Use a new one for every run, so that a
/// model edited in between is read afresh.
///
/// The six codes and values of GetSupportInfo are not kept: repeats answer zeros there.
class RememberingHost : public HostQueries {
public:
    /// Borrows `host`, which must outlive this one.
    explicit RememberingHost(HostQueries& host) : host_(host) {}

    /// Everything answered so far.
    const RecordedModel& Memory() const { return memory_; }

    /// The same, taken out: this host then remembers nothing.
    RecordedModel TakeMemory() { return std::exchange(memory_, RecordedModel()); }

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
    HostQueries& host_;
    RecordedModel memory_;
};
