#pragma once

#include <string>

#include "host/host_queries.h"
#include "host/recorded_model.h"

/// Answers all queries from a recorded model.
///
/// A question about a node or member that the model does not have is a failed host call; so is one
/// that was never answered. Displacements and end forces that were not recorded are zeros.
class RecordedHost : public HostQueries {
public:
    /// Borrows `model`, which must outlive the host. `modelFilePath` is what GetModelFilePath
    /// answers.
    RecordedHost(const RecordedModel& model, std::string modelFilePath);

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
    // A number that is not in the model is a failed call of `query`.
    std::size_t NodePosition(std::int32_t number, const char* query) const;
    std::size_t MemberPosition(std::int32_t number, const char* query) const;
    const RecordedNode& Node(std::int32_t number, const char* query) const;
    const RecordedMember& Member(std::int32_t number, const char* query) const;

    const RecordedModel& model_;
    std::string modelFilePath_;
};
