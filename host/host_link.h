#pragma once

#include <array>

#include "host/automation.h"
#include "host/host_queries.h"

/// The live host: attaches to an already running instance and answers the nineteen queries from
/// it. Never starts the host.
///
/// Use it on one thread, which must have initialised COM as a single-threaded apartment. Every
/// query is one synchronous cross-process call without time-out; nothing is kept between calls.
class HostLink : public HostQueries {
public:
    /// Finds the running host and binds its root object and ten sub-objects.
    ///
    /// Returns 1 when connected, 0 when the host is not installed, not running or refuses
    /// automation. Throws HostCallError when a host that was found fails to hand out a
    /// sub-object or refuses PostConnectCall; what was bound by then stays bound.
    int Connect();

    /// As Connect, with the host's running object at hand (borrowed); null when none is running.
    int ConnectTo(IUnknown* runningHost);

    /// Lets go of the root and of all sub-objects but the tenth, which stays bound until this
    /// object is destroyed.
    void Release();

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
    void BindSubObjects();
    std::int16_t GetLoadNumbers(const HostOperation& method, std::span<std::int32_t> numbers);

    // The root, then the ten sub-objects; an array is destroyed from its end, so the tenth
    // sub-object goes first and the root last.
    std::array<AutomationDriver, 11> drivers_;
};
