#include "bench/regular_building.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace {

constexpr std::int32_t kMetricUnitSystem = 2;

constexpr std::int32_t kDeadLoad = 1;
constexpr std::int32_t kEarthquakeX = 2;
constexpr std::int32_t kEarthquakeZ = 3;
constexpr std::int32_t kFirstCombination = 101;

constexpr double kStoryHeight = 4.0;  // m
constexpr double kBayX = 6.0;         // m
constexpr double kBayZ = 7.0;         // m

constexpr std::size_t kMembersOnInputLine = 20;  // a line of the input file has 199 characters

// Numbers as an engineer leaves them: with gaps, nodes and members apart.
std::int32_t NodeNumber(std::size_t position) {
    return static_cast<std::int32_t>(3 * position + 1);
}

std::int32_t MemberNumber(std::size_t position) {
    return static_cast<std::int32_t>(2 * position + 101);
}

std::int32_t ColumnsPerRow(std::int32_t columns) {
    return static_cast<std::int32_t>(std::ceil(std::sqrt(columns)));
}

struct GridNeighbours {
    std::int32_t first, second;
};

// Pairs of columns that a beam or a horizontal brace of one floor can join: along X, along Z, and
// both diagonals of every panel, in this order.
std::vector<GridNeighbours> NeighboursOnGrid(std::int32_t columns, std::int32_t columnsPerRow) {
    struct Step {
        std::int32_t x, z;
    };
    std::vector<GridNeighbours> pairs;
    for (const Step step : {Step{1, 0}, Step{0, 1}, Step{1, 1}, Step{-1, 1}}) {
        for (std::int32_t i = 0; i < columns; ++i) {
            const std::int32_t x = i % columnsPerRow + step.x;
            const std::int32_t other = i + step.z * columnsPerRow + step.x;
            if (x >= 0 && x < columnsPerRow && other < columns) pairs.push_back({i, other});
        }
    }
    return pairs;
}

// One member in four, or more on a grid that is too small for three beams a column.
std::int32_t ColumnsFor(std::int32_t membersPerStory) {
    for (std::int32_t columns = (membersPerStory + 3) / 4;; ++columns) {
        const auto beams = NeighboursOnGrid(columns, ColumnsPerRow(columns)).size();
        if (columns + static_cast<std::int32_t>(beams) > membersPerStory) return columns;
    }
}

std::int32_t PrimaryLoadCases(std::int32_t loadCases) {
    return std::max(kEarthquakeZ, loadCases * 2 / 3);
}

std::vector<std::int32_t> NumbersFrom(std::int32_t first, std::int32_t count) {
    std::vector<std::int32_t> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

// Makes the parts of one building, floor by floor.
class Builder {
public:
    explicit Builder(const BuildingSize& size)
        : size_(size),
          columnsPerStory_(ColumnsFor(size.members / size.stories)),
          columnsPerRow_(ColumnsPerRow(columnsPerStory_)) {}

    RegularBuilding Build();

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

    void MakeNodes();
    void MakeMembers();
    void MakeColumns(std::int32_t floor);
    void MakeBeams(std::int32_t floor, std::int32_t count);
    std::int32_t NodeAt(std::int32_t floor, std::int32_t column) const {
        return floor * columnsPerStory_ + column;
    }

    void DescribeHost(RecordedModel& model) const;
    void DescribeNodes(RecordedModel& model) const;
    void DescribeMembers(RecordedModel& model) const;
    SixDoubles Displacements(const Node& node, std::int32_t loadCase) const;
    SixDoubles ForcesAtStart(const Member& column, std::int32_t loadCase) const;
    std::string InputText() const;

    BuildingSize size_;
    std::int32_t columnsPerStory_;
    std::int32_t columnsPerRow_;
    std::vector<Node> nodes_;
    std::vector<Member> members_;
};

RegularBuilding Builder::Build() {
    MakeNodes();
    MakeMembers();
    RegularBuilding building;
    building.columnsPerStory = columnsPerStory_;
    building.inputText = InputText();
    DescribeHost(building.model);
    DescribeNodes(building.model);
    DescribeMembers(building.model);
    return building;
}

void Builder::MakeNodes() {
    for (std::int32_t floor = 0; floor <= size_.stories; ++floor) {
        for (std::int32_t column = 0; column < columnsPerStory_; ++column) {
            const std::int32_t row = column / columnsPerRow_;
            nodes_.push_back(
                {kBayX * (column % columnsPerRow_), kStoryHeight * floor, kBayZ * row, floor});
        }
    }
}

void Builder::MakeMembers() {
    const std::int32_t membersPerStory = size_.members / size_.stories;
    const std::int32_t remainder = size_.members % size_.stories;
    for (std::int32_t floor = 1; floor <= size_.stories; ++floor) {
        MakeColumns(floor);
        MakeBeams(floor, membersPerStory - columnsPerStory_ + (floor <= remainder ? 1 : 0));
    }
}

void Builder::MakeColumns(std::int32_t floor) {
    for (std::int32_t column = 0; column < columnsPerStory_; ++column) {
        const std::int32_t lower = NodeAt(floor - 1, column);
        const std::int32_t upper = NodeAt(floor, column);
        if (column % 3 == 2)
            members_.push_back({upper, lower, floor, true});
        else
            members_.push_back({lower, upper, floor, true});
    }
}

void Builder::MakeBeams(std::int32_t floor, std::int32_t count) {
    const auto pairs = NeighboursOnGrid(columnsPerStory_, columnsPerRow_);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        members_.push_back(
            {NodeAt(floor, pairs[i].first), NodeAt(floor, pairs[i].second), floor, false});
}

void Builder::DescribeHost(RecordedModel& model) const {
    model.baseUnitSystem = kMetricUnitSystem;
    model.zUp = false;
    model.resultsAvailable = true;
    model.primaryLoadCaseCount = PrimaryLoadCases(size_.loadCases);
    model.loadCombinationCount = size_.loadCases - *model.primaryLoadCaseCount;
    model.primaryLoadCases = NumbersFrom(kDeadLoad, *model.primaryLoadCaseCount);
    model.loadCombinations = NumbersFrom(kFirstCombination, *model.loadCombinationCount);
}

void Builder::DescribeNodes(RecordedModel& model) const {
    model.nodeList.emplace();
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        const std::int32_t number = NodeNumber(i);
        model.nodeList->push_back(number);
        RecordedNode& node = model.nodes[model.AddNode(number)];
        node.xyz = {nodes_[i].x, nodes_[i].y, nodes_[i].z};
        node.support = nodes_[i].floor == 0 ? 1 : 0;
    }
    model.nodeCount = static_cast<std::int32_t>(nodes_.size());
    for (const auto& list : {*model.primaryLoadCases, *model.loadCombinations})
        for (const std::int32_t loadCase : list)
            for (std::size_t i = 0; i < nodes_.size(); ++i)
                model.displacements.Store(i, loadCase, Displacements(nodes_[i], loadCase));
}

void Builder::DescribeMembers(RecordedModel& model) const {
    model.memberList.emplace();
    for (std::size_t i = 0; i < members_.size(); ++i) {
        const std::int32_t number = MemberNumber(i);
        const Member& from = members_[i];
        model.memberList->push_back(number);
        RecordedMember& member = model.members[model.AddMember(number)];
        member.endNodes = {NodeNumber(static_cast<std::size_t>(from.start)),
                           NodeNumber(static_cast<std::size_t>(from.end))};
        member.beta = from.isColumn && number % 5 == 0 ? 90.0 : 0.0;
        if (!from.isColumn) continue;
        for (const std::int32_t loadCase : {kDeadLoad, kEarthquakeX, kEarthquakeZ}) {
            SixDoubles forces = ForcesAtStart(from, loadCase);
            model.endForces[0].Store(i, loadCase, forces);
            for (double& force : forces)
                force = -force;
            model.endForces[1].Store(i, loadCase, forces);
        }
    }
    model.memberCount = static_cast<std::int32_t>(members_.size());
}

// The building leans along X or Z, the other way a little, and turns about its first column; a
// floor moves less the higher it is. Joints turn as well: a real analysis answers no zeros, and as
// many digits.
SixDoubles Builder::Displacements(const Node& node, std::int32_t loadCase) const {
    const double floors = node.floor * (1.0 - 0.002 * node.floor);
    const double alongX = loadCase == kEarthquakeZ ? 0.0002 : 0.004;
    const double alongZ = loadCase == kEarthquakeX ? 0.0003 : 0.005;
    const double size = 1.0 + 0.01 * loadCase;  // no two load cases alike
    const double turn = size * node.floor / kStoryHeight;
    return {size * floors * (alongX + 0.00001 * node.z),
            -0.0001 * floors,
            size * floors * (alongZ - 0.00002 * node.x),
            alongZ * turn / 3.0,
            0.00001 * turn / 7.0,
            alongX * turn / -3.0};
}

// Columns carry what stands above them, outer ones less; of a real analysis are the moments, too.
SixDoubles Builder::ForcesAtStart(const Member& column, std::int32_t loadCase) const {
    const Node& start = nodes_[static_cast<std::size_t>(column.start)];
    const double floorsAbove = size_.stories - column.floor + 1;
    const double share = 1.0 + 0.01 * start.x + 0.02 * start.z;
    const double size = share * floorsAbove * (1.0 + 0.01 * loadCase);
    const double arm = kStoryHeight / 3.0;
    return {400.0 * size,        30.0 * size,       -25.0 * size,
            30.0 * size / 700.0, 25.0 * size * arm, 30.0 * size * arm};
}

std::string Builder::InputText() const {
    std::string text = "DeadLoadCaseNumber," + std::to_string(kDeadLoad) +
                       ",\nEarthquakeLoadCaseNumber," + std::to_string(kEarthquakeX) + "," +
                       std::to_string(kEarthquakeZ) + ",\nMemberDeformAngle,";
    std::size_t named = 0;
    std::int32_t floor = 0;
    for (std::size_t i = 0; i < members_.size() && named < kMembersOnInputLine; ++i) {
        if (members_[i].floor == floor) continue;
        floor = members_[i].floor;
        text += std::to_string(MemberNumber(i)) + ",";
        ++named;
    }
    return text + "\nFIN\n";
}

}  // namespace

RegularBuilding MakeRegularBuilding(const BuildingSize& size) {
    return Builder(size).Build();
}
