#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

/// Six values of one node or one member end: three translations or forces along the axes, then
/// three rotations or moments about them.
using SixDoubles = std::array<double, 6>;

/// Six whole numbers of one node: the host's codes of its support.
using SixIntegers = std::array<std::int32_t, 6>;

/// A host call that failed, or whose answer cannot be fetched.
///
/// `status` is the host's status code (an HRESULT; negative means failure). The text says what
/// was asked and what the host reported.
class HostCallError : public std::runtime_error {
public:
    HostCallError(std::int32_t status, const std::string& text)
        : std::runtime_error(text), status_(status) {}

    std::int32_t Status() const noexcept { return status_; }

private:
    std::int32_t status_;
};

/// Everything that is ever asked of a structural-analysis host: nineteen queries.
///
/// Whatever answers them can have its building checked: the live host, a recorded one, a fake of
/// a test. Lengths come in the host's base unit: inches when GetBaseUnitSystem answers 1, metres
/// otherwise; forces in kip or kN accordingly. Numbers of nodes, members and load cases are the
/// host's own, 32-bit signed.
///
/// Every query throws HostCallError when the host reports a failure; nothing is asked twice and
/// no partial answer is handed out. Queries that cannot allocate throw std::bad_alloc.
class HostQueries {
public:
    HostQueries() = default;
    HostQueries(const HostQueries&) = delete;
    HostQueries& operator=(const HostQueries&) = delete;
    virtual ~HostQueries() = default;

    // The host itself.

    /// Full path of the model file open in the host, in the process's narrow code page; empty
    /// when the host returns none.
    virtual std::string GetModelFilePath() = 0;

    /// Made once at the end of every successful connection. Nothing to do where there is no
    /// connection.
    virtual void PostConnectCall() {}

    /// 1: English base units (inch, kip); any other value: metric (metre, kN).
    virtual std::int32_t GetBaseUnitSystem() = 0;

    // The geometry.

    virtual std::int32_t GetNodeCount() = 0;

    /// Fills `numbers` with the node numbers in the host's order; its size is the node count.
    virtual void GetNodeList(std::span<std::int32_t> numbers) = 0;

    /// Coordinates of a node in global axes, base length unit.
    virtual void GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) = 0;

    virtual std::int32_t GetMemberCount() = 0;

    /// Fills `numbers` with the member numbers in the host's order; its size is the member count.
    virtual void GetMemberList(std::span<std::int32_t> numbers) = 0;

    /// The two end nodes of a member.
    virtual void GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                                    std::int32_t& endNode) = 0;

    /// True when the vertical axis is Z, false when it is Y.
    virtual bool IsZUp() = 0;

    // Member properties and supports.

    /// Rotation of a member about its own axis, degrees; a single-precision value, widened.
    virtual double GetMemberRotationAngle(std::int32_t member) = 0;

    /// Non-zero when the node is supported. The codes and values are the host's own detail.
    virtual std::int32_t GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                        SixDoubles& values) = 0;

    // The loads.

    virtual std::int32_t GetPrimaryLoadCaseCount() = 0;
    virtual std::int32_t GetLoadCombinationCount() = 0;

    /// Fills `numbers` in the host's order; its size is the matching count. What is in `numbers`
    /// before the call is handed to the host. The returned value has no use.
    virtual std::int16_t GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) = 0;
    virtual std::int16_t GetLoadCombinationNumbers(std::span<std::int32_t> numbers) = 0;

    // The results.

    /// Three translations along global x, y, z, base length unit, then three rotations. Zeros
    /// where the host answers nothing. The returned value has no use.
    virtual std::int16_t GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                              SixDoubles& displacements) = 0;

    /// Forces that act on one end of a member (`end` 0: start, 1: end) along the member's local
    /// x, y, z axes, base force unit, then three moments. Zeros where the host answers nothing.
    /// The returned value has no use.
    virtual std::int16_t GetMemberEndForces(std::int32_t member, std::int32_t end,
                                            std::int32_t loadCase, SixDoubles& forces) = 0;

    /// True when the host holds analysis results for the model.
    virtual bool AreResultsAvailable() = 0;
};
