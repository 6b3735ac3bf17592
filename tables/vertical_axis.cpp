#include "tables/vertical_axis.h"

#include <algorithm>
#include <array>
#include <limits>

#include "tables/statement_findings.h"

namespace {

// Relative heights of the held nodes in the mean: sites on a slope stay below the first, the foot
// of a building seen along another axis lies below the second.
constexpr double kTooHigh = 0.4;
constexpr double kAtTheFoot = 0.1;

double Coordinate(const Vec3& point, std::size_t axis) {
    return axis == 0 ? point.x : axis == 1 ? point.y : point.z;
}

// The nodes of the bars, and the mean position of the held ones among them.
class HeldPositions {
public:
    explicit HeldPositions(const BuildingTables& tables)
        : tables_(tables), nodes_(NodesOfBars(tables)), held_(HeldNodesOfBars(tables)) {}

    const std::vector<std::size_t>& Held() const { return held_; }

    // Along an axis: 0 at the least coordinate of all nodes, 1 at the greatest. Nothing where the
    // building has no extent.
    std::optional<double> Mean(std::size_t axis) const {
        double least = std::numeric_limits<double>::infinity(), greatest = -least, sum = 0.0;
        for (const std::size_t node : nodes_) {
            least = std::min(least, Coordinate(tables_.nodes.points[node], axis));
            greatest = std::max(greatest, Coordinate(tables_.nodes.points[node], axis));
        }
        for (const std::size_t node : held_)
            sum += Coordinate(tables_.nodes.points[node], axis) - least;
        if (!(greatest > least)) return std::nullopt;
        return sum / static_cast<double>(held_.size()) / (greatest - least);
    }

private:
    const BuildingTables& tables_;
    std::vector<std::size_t> nodes_, held_;
};

// The statement that would put the held nodes at the foot; empty when none does.
std::string AxisThatFits(const HeldPositions& positions, std::size_t stated) {
    constexpr std::array<const char*, 3> kNames{"X", "Y", "Z"};
    for (const std::size_t axis : {std::size_t{2}, std::size_t{1}, std::size_t{0}}) {
        const auto position = positions.Mean(axis);
        if (!position) continue;
        if (*position <= kAtTheFoot && axis == 0)
            return "they lie at the foot along X: state axisX, axisY and axisZ";
        if (*position <= kAtTheFoot)
            return std::string("verticalAxis ") + kNames[axis] + " would fit";
        if (*position >= 1.0 - kAtTheFoot && axis == stated)
            return "the building stands on its head: state axisX, axisY and axisZ";
    }
    return {};
}

}  // namespace

std::vector<std::size_t> NodesOfBars(const BuildingTables& tables) {
    std::vector<bool> isUsed(tables.nodes.names.size(), false);
    for (const std::size_t row : tables.members.bars)
        for (const auto& node :
             {tables.members.rows[row].startNode, tables.members.rows[row].endNode})
            if (node) isUsed[*node] = true;
    std::vector<std::size_t> nodes;
    for (std::size_t node = 0; node < isUsed.size(); ++node)
        if (isUsed[node]) nodes.push_back(node);
    return nodes;
}

std::vector<std::size_t> HeldNodesOfBars(const BuildingTables& tables) {
    std::vector<std::size_t> nodes = NodesOfBars(tables);
    std::erase_if(nodes, [&tables](std::size_t node) { return !tables.isHeld[node]; });
    return nodes;
}

std::optional<std::string> WrongVerticalAxis(const BuildingTables& tables) {
    const HeldPositions positions(tables);
    if (positions.Held().empty()) return std::nullopt;
    const std::size_t vertical = tables.statement.zUp ? 2 : 1;
    const double position = positions.Mean(vertical).value_or(0.0);
    if (!(position > kTooHigh)) return std::nullopt;
    const std::string fitting = AxisThatFits(positions, vertical);
    if (fitting.empty()) return std::nullopt;
    std::vector<std::string> names;
    for (const std::size_t node : positions.Held())
        names.push_back(tables.nodes.names.Name(node));
    return About(tables.statement, "verticalAxis") + "the held nodes (" + ListText(names) +
           ") lie at " + FigureText(position * 100.0) +
           " % of the height in the mean; the foot is expected: " + fitting;
}
