#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "host/host_queries.h"

/// A building in memory that answers as a host would, writes down what it was asked, and fails on
/// demand. A question about a node or member that was not added fails; displacements and forces
/// that were not given are zeros.
///
/// Coordinates and displacements are in the host's base unit (metres unless `baseUnitSystem` is
/// 1), so a test of a metric model gives 3.5 for 3500 mm.
class FakeHost : public HostQueries {
public:
    FakeHost& Node(std::int32_t number, double x, double y, double z, bool supported = false);
    FakeHost& Member(std::int32_t number, std::int32_t start, std::int32_t end, float beta = 0.0F);
    FakeHost& Displace(std::int32_t loadCase, std::int32_t node, double x, double y, double z);
    FakeHost& Force(std::int32_t loadCase, std::int32_t member, std::int32_t end, double f0,
                    double f1, double f2);

    /// Every later question fails.
    void FailFromNowOn() { failAtCall = calls.size() + 1; }

    std::string modelPath;
    std::int32_t baseUnitSystem = 2;
    bool zUp = false;
    bool resultsAvailable = true;
    std::vector<std::int32_t> primaryLoadCases;
    std::vector<std::int32_t> loadCombinations;

    /// What was asked, in order: "GetNodeDisplacements(5, 2)" is node 5 under load case 2.
    std::vector<std::string> calls;

    /// Number of the call, from 1, that fails, and with it every later one.
    std::optional<std::size_t> failAtCall;

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
    struct FakeNode {
        std::int32_t number;
        double x, y, z;
        bool supported;
    };
    struct FakeMember {
        std::int32_t number;
        std::int32_t start, end;
        float beta;
    };

    void WriteDown(const std::string& call);
    const FakeNode& FindNode(std::int32_t number) const;
    const FakeMember& FindMember(std::int32_t number) const;

    std::vector<FakeNode> nodes_;
    std::vector<FakeMember> members_;
    std::map<std::tuple<std::int32_t, std::int32_t>, SixDoubles> displacements_;
    std::map<std::tuple<std::int32_t, std::int32_t, std::int32_t>, SixDoubles> forces_;
};
