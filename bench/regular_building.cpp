#include "bench/regular_building.h"

#include <cmath>
#include <utility>

namespace {

constexpr std::int32_t kMetricUnitSystem = 2;
constexpr std::int32_t kFailed = static_cast<std::int32_t>(0x80004005);  // E_FAIL

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

void FillFrom(std::int32_t first, std::span<std::int32_t> numbers) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = first + static_cast<std::int32_t>(i);
}

}  // namespace

RegularBuilding::RegularBuilding(const BuildingSize& size, std::string modelPath)
    : size_(size),
      modelPath_(std::move(modelPath)),
      columnsPerStory_(ColumnsFor(size.members / size.stories)),
      columnsPerRow_(ColumnsPerRow(columnsPerStory_)) {
    AddNodes();
    const std::int32_t membersPerStory = size.members / size.stories;
    const std::int32_t remainder = size.members % size.stories;
    for (std::int32_t floor = 1; floor <= size.stories; ++floor) {
        AddColumns(floor);
        AddBeams(floor, membersPerStory - columnsPerStory_ + (floor <= remainder ? 1 : 0));
    }
}

void RegularBuilding::AddNodes() {
    for (std::int32_t floor = 0; floor <= size_.stories; ++floor) {
        for (std::int32_t column = 0; column < columnsPerStory_; ++column) {
            const std::int32_t row = column / columnsPerRow_;
            nodes_.push_back(
                {kBayX * (column % columnsPerRow_), kStoryHeight * floor, kBayZ * row, floor});
        }
    }
}

void RegularBuilding::AddColumns(std::int32_t floor) {
    for (std::int32_t column = 0; column < columnsPerStory_; ++column) {
        const std::int32_t lower = NodeAt(floor - 1, column);
        const std::int32_t upper = NodeAt(floor, column);
        if (column % 3 == 2)
            members_.push_back({upper, lower, floor, true});
        else
            members_.push_back({lower, upper, floor, true});
    }
}

void RegularBuilding::AddBeams(std::int32_t floor, std::int32_t count) {
    const auto pairs = NeighboursOnGrid(columnsPerStory_, columnsPerRow_);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        members_.push_back(
            {NodeAt(floor, pairs[i].first), NodeAt(floor, pairs[i].second), floor, false});
}

std::string RegularBuilding::InputFileText() const {
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

const RegularBuilding::Node& RegularBuilding::FindNode(std::int32_t number) const {
    const auto position = static_cast<std::size_t>(number - 1) / 3;
    if (number < 1 || position >= nodes_.size() || NodeNumber(position) != number)
        throw HostCallError(kFailed, "node " + std::to_string(number) + " is not in the building");
    return nodes_[position];
}

const RegularBuilding::Member& RegularBuilding::FindMember(std::int32_t number) const {
    const auto position = static_cast<std::size_t>(number - 101) / 2;
    if (number < 101 || position >= members_.size() || MemberNumber(position) != number)
        throw HostCallError(kFailed,
                            "member " + std::to_string(number) + " is not in the building");
    return members_[position];
}

std::string RegularBuilding::GetModelFilePath() {
    return modelPath_;
}

void RegularBuilding::PostConnectCall() {}

std::int32_t RegularBuilding::GetBaseUnitSystem() {
    return kMetricUnitSystem;
}

std::int32_t RegularBuilding::GetNodeCount() {
    return static_cast<std::int32_t>(nodes_.size());
}

void RegularBuilding::GetNodeList(std::span<std::int32_t> numbers) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = NodeNumber(i);
}

void RegularBuilding::GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) {
    const Node& found = FindNode(node);
    x = found.x;
    y = found.y;
    z = found.z;
}

std::int32_t RegularBuilding::GetMemberCount() {
    return static_cast<std::int32_t>(members_.size());
}

void RegularBuilding::GetMemberList(std::span<std::int32_t> numbers) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = MemberNumber(i);
}

void RegularBuilding::GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                                         std::int32_t& endNode) {
    const Member& found = FindMember(member);
    startNode = NodeNumber(static_cast<std::size_t>(found.start));
    endNode = NodeNumber(static_cast<std::size_t>(found.end));
}

bool RegularBuilding::IsZUp() {
    return false;
}

double RegularBuilding::GetMemberRotationAngle(std::int32_t member) {
    return FindMember(member).isColumn && member % 5 == 0 ? 90.0 : 0.0;
}

std::int32_t RegularBuilding::GetSupportInfo(std::int32_t node, SixIntegers& codes,
                                             SixDoubles& values) {
    codes = {};
    values = {};
    return FindNode(node).floor == 0 ? 1 : 0;
}

std::int32_t RegularBuilding::GetPrimaryLoadCaseCount() {
    return PrimaryLoadCases(size_.loadCases);
}

std::int32_t RegularBuilding::GetLoadCombinationCount() {
    return size_.loadCases - PrimaryLoadCases(size_.loadCases);
}

std::int16_t RegularBuilding::GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) {
    FillFrom(kDeadLoad, numbers);
    return 1;
}

std::int16_t RegularBuilding::GetLoadCombinationNumbers(std::span<std::int32_t> numbers) {
    FillFrom(kFirstCombination, numbers);
    return 1;
}

// The building leans along X or Z, the other way a little, and turns about its first column; a
// floor moves less the higher it is.
std::int16_t RegularBuilding::GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                                   SixDoubles& displacements) {
    const Node& found = FindNode(node);
    const double floors = found.floor * (1.0 - 0.002 * found.floor);
    const double alongX = loadCase == kEarthquakeZ ? 0.0002 : 0.004;
    const double alongZ = loadCase == kEarthquakeX ? 0.0003 : 0.005;
    const double size = 1.0 + 0.01 * loadCase;  // no two load cases alike
    displacements = {size * floors * (alongX + 0.00001 * found.z),
                     -0.0001 * floors,
                     size * floors * (alongZ - 0.00002 * found.x),
                     0.0,
                     0.0,
                     0.0};
    return 1;
}

// Columns carry what stands above them, outer ones less; beams nothing worth mentioning.
std::int16_t RegularBuilding::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                                 std::int32_t loadCase, SixDoubles& forces) {
    const Member& found = FindMember(member);
    const Node& start = nodes_[static_cast<std::size_t>(found.start)];
    const double floorsAbove = size_.stories - found.floor + 1;
    const double share = found.isColumn ? 1.0 + 0.01 * start.x + 0.02 * start.z : 0.001;
    const double sign = end == 0 ? 1.0 : -1.0;
    const double size = sign * share * floorsAbove * (1.0 + 0.01 * loadCase);
    forces = {400.0 * size, 30.0 * size, -25.0 * size, 0.0, 0.0, 0.0};
    return 1;
}

bool RegularBuilding::AreResultsAvailable() {
    return true;
}
