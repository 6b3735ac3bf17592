#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/host_queries.h"

/// How large a generated building is. Members are columns and floor beams together.
struct BuildingSize {
    std::int32_t members;
    std::int32_t stories;
    std::int32_t loadCases;
};

/// A generated building that answers every question from memory, at once and always alike: a
/// host without cost, for benchmarks and for tests that count questions.
///
/// Y is vertical, units are metric. Every story is 4 m high and has the same columns on a grid;
/// one member in four is a column where the grid has room for enough beams. Beams and horizontal
/// braces join neighbouring columns at every floor but the lowest. Every third column runs from
/// top to bottom. Numbers of nodes and members have gaps.
class RegularBuilding : public HostQueries {
public:
    /// `size` has at least one story, two members a story and three load cases: 1 is dead load,
    /// 2 an earthquake along X, 3 one along Z. `modelPath` is what GetModelFilePath answers.
    RegularBuilding(const BuildingSize& size, std::string modelPath);

    /// A Route 2 Input file for this building: the load cases above and the first column of every
    /// story, as far as a line has room, to be reported. Floors and stories come from the model.
    std::string InputFileText() const;

    const std::string& modelPath() const { return modelPath_; }
    std::int32_t ColumnsPerStory() const { return columnsPerStory_; }

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
    struct Node {
        double x, y, z;  // m
        std::int32_t floor;
    };
    struct Member {
        std::int32_t start, end;  // positions in nodes_
        std::int32_t floor;       // the upper one of a column
        bool isColumn;
    };

    void AddNodes();
    void AddColumns(std::int32_t floor);
    void AddBeams(std::int32_t floor, std::int32_t count);
    std::int32_t NodeAt(std::int32_t floor, std::int32_t column) const {
        return floor * columnsPerStory_ + column;
    }
    const Node& FindNode(std::int32_t number) const;
    const Member& FindMember(std::int32_t number) const;

    BuildingSize size_;
    std::string modelPath_;
    std::int32_t columnsPerStory_;
    std::int32_t columnsPerRow_;
    std::vector<Node> nodes_;
    std::vector<Member> members_;
};
