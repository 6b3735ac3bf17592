#pragma once

#include "host/passing_host.h"

/// Stands in front of a host and asks it again what a run asks for thousands
/// of times: a run that takes so much longer tells what the answers cost, without a clock at each.
class AskingAgain : public PassingHost {
    template <typename Question>
    auto Ask(const Question& question) {
        for (int i = 0; i < again_; ++i)
            question();
        return question();
    }

public:
    /// Borrows `host`. `again`: 0 passes every question on and no more.
    AskingAgain(HostQueries& host, int again) : PassingHost(host), host_(host), again_(again) {}

    void GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) override {
        Ask([&] { host_.GetNodeCoordinates(node, x, y, z); });
    }
    void GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                            std::int32_t& endNode) override {
        Ask([&] { host_.GetMemberIncidence(member, startNode, endNode); });
    }
    double GetMemberRotationAngle(std::int32_t member) override {
        return Ask([&] { return host_.GetMemberRotationAngle(member); });
    }
    std::int32_t GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                SixDoubles& values) override {
        return Ask([&] { return host_.GetSupportInfo(node, codes, values); });
    }
    std::int16_t GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                      SixDoubles& displacements) override {
        return Ask([&] { return host_.GetNodeDisplacements(node, loadCase, displacements); });
    }
    std::int16_t GetMemberEndForces(std::int32_t member, std::int32_t end, std::int32_t loadCase,
                                    SixDoubles& forces) override {
        return Ask([&] { return host_.GetMemberEndForces(member, end, loadCase, forces); });
    }

private:
    HostQueries& host_;
    int again_;
};
