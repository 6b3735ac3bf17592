#pragma once

#include "host/host_queries.h"

/// Stands in front of another host and passes every question on: the base of whatever watches,
/// counts or ends the questions of a run.
class PassingHost : public HostQueries {
public:
    /// Borrows `host`, which must outlive this one.
    explicit PassingHost(HostQueries& host) : host_(host) {}

    std::string GetModelFilePath() override { return Next().GetModelFilePath(); }
    void PostConnectCall() override { Next().PostConnectCall(); }
    std::int32_t GetBaseUnitSystem() override { return Next().GetBaseUnitSystem(); }

    std::int32_t GetNodeCount() override { return Next().GetNodeCount(); }
    void GetNodeList(std::span<std::int32_t> numbers) override { Next().GetNodeList(numbers); }
    void GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) override {
        Next().GetNodeCoordinates(node, x, y, z);
    }
    std::int32_t GetMemberCount() override { return Next().GetMemberCount(); }
    void GetMemberList(std::span<std::int32_t> numbers) override { Next().GetMemberList(numbers); }
    void GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                            std::int32_t& endNode) override {
        Next().GetMemberIncidence(member, startNode, endNode);
    }
    bool IsZUp() override { return Next().IsZUp(); }

    double GetMemberRotationAngle(std::int32_t member) override {
        return Next().GetMemberRotationAngle(member);
    }
    std::int32_t GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                SixDoubles& values) override {
        return Next().GetSupportInfo(node, codes, values);
    }

    std::int32_t GetPrimaryLoadCaseCount() override { return Next().GetPrimaryLoadCaseCount(); }
    std::int32_t GetLoadCombinationCount() override { return Next().GetLoadCombinationCount(); }
    std::int16_t GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) override {
        return Next().GetPrimaryLoadCaseNumbers(numbers);
    }
    std::int16_t GetLoadCombinationNumbers(std::span<std::int32_t> numbers) override {
        return Next().GetLoadCombinationNumbers(numbers);
    }

    std::int16_t GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                      SixDoubles& displacements) override {
        return Next().GetNodeDisplacements(node, loadCase, displacements);
    }
    std::int16_t GetMemberEndForces(std::int32_t member, std::int32_t end, std::int32_t loadCase,
                                    SixDoubles& forces) override {
        return Next().GetMemberEndForces(member, end, loadCase, forces);
    }
    bool AreResultsAvailable() override { return Next().AreResultsAvailable(); }

protected:
    /// Called before each question is passed on; what it throws leaves the question.
    virtual void BeforeQuestion() {}

private:
    HostQueries& Next() {
        BeforeQuestion();
        return host_;
    }

    HostQueries& host_;
};
