#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/host_queries.h"
#include "host/member_axes.h"
#include "host/number_positions.h"
#include "host/recorded_model.h"

/// A question that a recording does not answer, although it was made by a run: a failed host call.
class MissingAnswerError : public HostCallError {
public:
    MissingAnswerError(std::int32_t status, const std::string& text, std::string asked,
                       std::string recordedFor)
        : HostCallError(status, text),
          asked_(std::move(asked)),
          recordedFor_(std::move(recordedFor)) {}

    /// What was asked: "the displacements of node 12 under load case 3".
    const std::string& Asked() const noexcept { return asked_; }

    /// Name of the input file that the recording was made for; empty when it is for every one.
    const std::string& RecordedFor() const noexcept { return recordedFor_; }

private:
    std::string asked_;
    std::string recordedFor_;
};

/// Answers all queries from a recorded model.
///
/// A question about a node or member that the model does not have is a failed host call; so is one
/// that was never answered. What is not there of displacements and end forces is answered with
/// zeros, as is everything under a load case that the model does not have. But where the model says
/// which run it was recorded for, a missing answer about its own load cases is a failed call, whose
/// text says what was asked, for which input file the recording was made and how to make another.
///
/// Forces that are recorded along the global axes are turned into the member's own axes, as the run
/// forms them from the model's coordinates in mm. Where these axes lie in one plane
/// (host/global_forces.h), the question is a failed call.
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

    /// How many different questions about displacements and end forces were answered with zeros
    /// because the model does not list the answer. Supported nodes, which do not move, and load
    /// cases that the model does not have are not counted.
    std::size_t UnlistedAnswers() const { return unlistedAnswers_; }

private:
    enum class Quantity : std::uint8_t { kDisplacements, kForcesAtStart, kForcesAtEnd };

    // The answer where none is listed: zeros, or a failed call.
    SixDoubles Unlisted(Quantity quantity, std::size_t position, std::int32_t loadCase);
    // A number that is not in the model is a failed call of `query`.
    std::size_t NodePosition(std::int32_t number, const char* query) const;
    std::size_t MemberPosition(std::int32_t number, const char* query) const;
    const RecordedNode& Node(std::int32_t number, const char* query) const;
    const RecordedMember& Member(std::int32_t number, const char* query) const;

    SixDoubles TurnedForces(std::size_t memberPosition, const SixDoubles& global);
    const MemberAxes& AxesOf(std::size_t memberPosition);
    Vec3 PointOf(std::int32_t node) const;  ///< mm

    void CountUnlisted(Quantity quantity, std::size_t position, std::size_t loadCasePosition);
    [[noreturn]] void FailUnlisted(Quantity quantity, std::size_t position,
                                   std::int32_t loadCase) const;

    const RecordedModel& model_;
    std::string modelFilePath_;
    NumberPositions loadCases_;  ///< those that the model has
    std::size_t loadCaseCount_ = 0;
    std::array<std::vector<std::vector<bool>>, 3> unlisted_;  ///< quantity, load case, position
    std::size_t unlistedAnswers_ = 0;
    std::vector<std::optional<MemberAxes>> axes_;  ///< of the members asked about, by position
};
