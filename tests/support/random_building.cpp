#include "tests/support/random_building.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>
#include <stdexcept>

namespace {

// The standard distributions differ between libraries; these do not.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    double Real(double low, double high) {
        return low + (high - low) * static_cast<double>(engine_() >> 11) * 0x1.0p-53;
    }
    std::int32_t Whole(std::int32_t low, std::int32_t high) {
        const auto count = static_cast<std::uint64_t>(high - low + 1);
        return low + static_cast<std::int32_t>(engine_() % count);
    }
    bool Chance(double probability) { return Real(0.0, 1.0) < probability; }

    template <typename Element>
    void Shuffle(std::vector<Element>& elements) {
        for (std::size_t i = elements.size(); i > 1; --i)
            std::swap(
                elements[i - 1],
                elements[static_cast<std::size_t>(Whole(0, static_cast<std::int32_t>(i) - 1))]);
    }

    // Distinct numbers from 1 on, with gaps.
    std::vector<std::int32_t> Numbers(std::size_t count) {
        std::vector<std::int32_t> numbers;
        std::int32_t next = 0;
        for (std::size_t i = 0; i < count; ++i)
            numbers.push_back(next += Whole(1, 4));
        Shuffle(numbers);
        return numbers;
    }

private:
    std::mt19937_64 engine_;
};

PlanVector Difference(const PlanVector& a, const PlanVector& b) {
    return {a.x - b.x, a.z - b.z, a.up - b.up};
}

// Lines of a plan, mm.
std::vector<double> GridLines(Dice& dice, bool symmetric) {
    if (symmetric) {
        const double outer = dice.Real(4000.0, 9000.0);
        if (dice.Chance(0.5)) return {-outer, outer};
        const double inner = dice.Real(500.0, 3500.0);
        return {-outer, -inner, inner, outer};
    }
    std::vector<double> lines{dice.Real(-5000.0, 5000.0)};
    const std::int32_t bays = dice.Whole(1, 3);
    for (std::int32_t i = 0; i < bays; ++i)
        lines.push_back(lines.back() + dice.Real(3000.0, 9000.0));
    return lines;
}

// Builds a frame; the members and nodes have provisional numbers 1, 2, ... until Renumber.
class Frame {
public:
    Frame(std::uint64_t seed, bool symmetric)
        : dice_(seed),
          symmetric_(symmetric),
          linesX_(GridLines(dice_, symmetric)),
          linesZ_(GridLines(dice_, symmetric)) {
        levels_.push_back(symmetric ? 0.0 : dice_.Real(-2000.0, 2000.0));
        const std::int32_t stories = dice_.Whole(1, 4);
        for (std::int32_t i = 0; i < stories; ++i)
            levels_.push_back(levels_.back() + dice_.Real(2500.0, 5000.0));
    }

    Building Build() {
        building_.zUp = dice_.Chance(0.5);
        building_.inch = dice_.Chance(0.5);
        ChooseLoadCases();
        AddGridNodes();
        AddColumns();
        if (!symmetric_) AddBraces();
        AddBeams();
        if (!symmetric_ && levels_.size() > 2 && dice_.Chance(0.5)) AddColumnThroughTwoStories();
        AddDisplacements();
        for (const Building::Member& member : building_.members)
            AddForces(member);
        for (const Building::Member& member : building_.members)
            if (dice_.Chance(0.2)) building_.reportedMembers.push_back(member.number);
        return building_;
    }

private:
    void ChooseLoadCases() {
        const std::vector<std::int32_t> numbers = dice_.Numbers(7);
        building_.deadLoadCase = numbers[0];
        building_.earthquakeX = numbers[1];
        building_.earthquakeZ = numbers[2];
        building_.primaryLoadCases.assign(numbers.begin(), numbers.begin() + dice_.Whole(3, 5));
        dice_.Shuffle(building_.primaryLoadCases);
        building_.loadCombinations.assign(numbers.begin() + 5, numbers.begin() + dice_.Whole(5, 7));
    }

    std::int32_t AddNode(const PlanVector& at, bool supported) {
        const std::int32_t number = nodeNumbers_.at(building_.nodes.size());
        building_.nodes.push_back({number, at, supported});
        return number;
    }

    void AddMember(std::int32_t a, std::int32_t b, double beta) {
        const std::int32_t number = memberNumbers_.at(building_.members.size());
        if (dice_.Chance(0.5)) std::swap(a, b);
        building_.members.push_back({number, a, b, beta});
    }

    double Beta() {
        if (dice_.Chance(0.5)) return 0.0;
        // Angles of single precision, as hosts answer them.
        return dice_.Chance(0.5) ? 90.0 : 0.25 * dice_.Whole(-720, 720);
    }

    void AddGridNodes() {
        nodeNumbers_ = dice_.Numbers(linesX_.size() * linesZ_.size() * levels_.size() + 2);
        memberNumbers_ = dice_.Numbers(500);
        for (std::size_t k = 0; k < levels_.size(); ++k)
            for (const double x : linesX_)
                for (const double z : linesZ_)
                    grid_.push_back(AddNode({x, z, levels_[k]}, k == 0));
    }

    std::int32_t GridNode(std::size_t i, std::size_t j, std::size_t k) const {
        return grid_[(k * linesX_.size() + i) * linesZ_.size() + j];
    }

    bool IsCorner(std::size_t i, std::size_t j) const {
        return (i == 0 || i + 1 == linesX_.size()) && (j == 0 || j + 1 == linesZ_.size());
    }

    void AddColumns() {
        for (std::size_t k = 0; k + 1 < levels_.size(); ++k)
            for (std::size_t i = 0; i < linesX_.size(); ++i)
                for (std::size_t j = 0; j < linesZ_.size(); ++j)
                    if (symmetric_ || IsCorner(i, j) || dice_.Chance(0.8))
                        AddMember(GridNode(i, j, k), GridNode(i, j, k + 1), Beta());
    }

    void AddBraces() {
        for (std::size_t k = 0; k + 1 < levels_.size(); ++k)
            for (std::size_t i = 0; i + 1 < linesX_.size(); ++i)
                if (dice_.Chance(0.3))
                    AddMember(GridNode(i, 0, k), GridNode(i + 1, 0, k + 1), Beta());
    }

    void AddBeams() {
        for (std::size_t k = 1; k < levels_.size(); ++k)
            for (std::size_t i = 0; i + 1 < linesX_.size(); ++i)
                for (std::size_t j = 0; j < linesZ_.size(); ++j)
                    AddMember(GridNode(i, j, k), GridNode(i + 1, j, k), 0.0);
    }

    void AddColumnThroughTwoStories() {
        const double x = linesX_.back() + 2000.0;
        const double z = linesZ_.front();
        AddMember(AddNode({x, z, levels_[0]}, true), AddNode({x, z, levels_[2]}, false), Beta());
    }

    // Under an earthquake every floor moves on from the floor below by 2 to 15 mm, and turns by so
    // little that no point of it moves back.
    void AddEarthquake(std::int32_t loadCase, bool alongX) {
        double moved = 0.0, turned = 0.0;
        std::vector<std::array<double, 2>> floors{{0.0, 0.0}};
        for (std::size_t k = 1; k < levels_.size(); ++k) {
            moved += dice_.Real(2.0, 15.0);
            if (!symmetric_) turned += dice_.Real(-4e-5, 4e-5);
            floors.push_back({moved, turned});
        }
        for (const Building::Node& node : building_.nodes) {
            const auto floor = static_cast<std::size_t>(
                std::find(levels_.begin(), levels_.end(), node.at.up) - levels_.begin());
            const auto [shift, angle] = floors.at(floor);
            const double arm = alongX ? node.at.z : node.at.x;
            const double drift = shift + angle * arm;
            building_.displacements[{loadCase, node.number}] =
                alongX ? PlanVector{drift, 0.1, -0.3} : PlanVector{-0.1, drift, -0.3};
        }
    }

    void AddDisplacements() {
        for (const std::int32_t loadCase : building_.primaryLoadCases)
            AddOtherDisplacements(loadCase);
        for (const std::int32_t loadCase : building_.loadCombinations)
            AddOtherDisplacements(loadCase);
        AddEarthquake(building_.earthquakeX, true);
        AddEarthquake(building_.earthquakeZ, false);
    }

    void AddOtherDisplacements(std::int32_t loadCase) {
        for (const Building::Node& node : building_.nodes)
            if (!node.supported)
                building_.displacements[{loadCase, node.number}] = {
                    dice_.Real(-3.0, 3.0), dice_.Real(-3.0, 3.0), dice_.Real(-3.0, 3.0)};
    }

    // A stiffness (kN/mm) that members at mirrored places of a story share.
    double Stiffness(const PlanVector& at) {
        if (!symmetric_) return dice_.Real(1.0, 80.0);
        const auto [entry, isNew] =
            sharedStiffness_.try_emplace({std::abs(at.x), std::abs(at.z), at.up}, 0.0);
        if (isNew) entry->second = dice_.Real(1.0, 80.0);
        return entry->second;
    }

    double Weight(const PlanVector& at) {
        if (!symmetric_) return dice_.Real(50.0, 800.0);
        const auto [entry, isNew] =
            sharedWeight_.try_emplace({std::abs(at.x), std::abs(at.z), at.up}, 0.0);
        if (isNew) entry->second = dice_.Real(50.0, 800.0);
        return entry->second;
    }

    // Forces on the member's ends: at the lower one what its stiffness asks for, at the upper one
    // anything, because the checks never look there.
    void AddForces(const Building::Member& member) {
        const Building::Node& start = building_.FindNode(member.start);
        const Building::Node& end = building_.FindNode(member.end);
        const bool startIsLower = start.at.up < end.at.up;
        const Building::Node& lower = startIsLower ? start : end;
        const Building::Node& upper = startIsLower ? end : start;
        const std::int32_t lowerEnd = startIsLower ? 0 : 1;

        auto& forces = building_.forces;
        for (const std::int32_t loadCase :
             {building_.deadLoadCase, building_.earthquakeX, building_.earthquakeZ}) {
            const PlanVector drift = Difference(building_.displacements[{loadCase, upper.number}],
                                                building_.displacements[{loadCase, lower.number}]);
            PlanVector force{dice_.Real(-5.0, 5.0), dice_.Real(-5.0, 5.0), dice_.Real(-90.0, 90.0)};
            if (loadCase == building_.deadLoadCase) force.up = Weight(lower.at);
            if (loadCase == building_.earthquakeX) force.x = -Stiffness(lower.at) * drift.x;
            if (loadCase == building_.earthquakeZ) force.z = -Stiffness(lower.at) * drift.z;
            forces[{loadCase, member.number, lowerEnd}] = force;
            forces[{loadCase, member.number, 1 - lowerEnd}] = {1e3, -2e3, 3e3};
        }
    }

    using Place = std::array<double, 3>;

    Dice dice_;
    bool symmetric_;
    std::vector<double> linesX_, linesZ_, levels_;
    std::vector<std::int32_t> nodeNumbers_, memberNumbers_;
    std::vector<std::int32_t> grid_;
    std::map<Place, double> sharedStiffness_, sharedWeight_;
    Building building_;
};

// --- As a host shows it --------------------------------------------------------------------------

using Axes = std::array<double, 3>;

constexpr double kMillimetresPerInch = 25.4;
constexpr double kNewtonsPerPoundForce = 4.4482216152605;

Axes InHostAxes(const PlanVector& vector, bool zUp) {
    return zUp ? Axes{vector.x, vector.z, vector.up} : Axes{vector.x, vector.up, vector.z};
}

Axes Times(double factor, const Axes& a) {
    return {factor * a[0], factor * a[1], factor * a[2]};
}

double Dot(const Axes& a, const Axes& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Axes Cross(const Axes& a, const Axes& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Axes Unit(const Axes& a) {
    return Times(1.0 / std::sqrt(Dot(a, a)), a);
}

// A member's local axes as frame programs teach them: x along the member; without rotation, y of
// a member in a vertical plane through the global x axis is the one in that plane (Y vertical) or
// across it (Z vertical). Good for vertical members and members with Y vertical, and with Z
// vertical for members without a y component.
std::array<Axes, 3> LocalAxes(const Axes& along, double betaDegrees, bool zUp) {
    const Axes x = Unit(along);
    const Axes vertical = zUp ? Axes{0.0, 0.0, 1.0} : Axes{0.0, 1.0, 0.0};
    const Axes across = Cross(x, vertical);
    const bool isVertical = Dot(across, across) < 1e-12;
    Axes y{}, z{};
    if (zUp) {
        y = isVertical ? Axes{0.0, 1.0, 0.0} : Unit(across);
        z = Cross(x, y);
    } else {
        z = isVertical ? Axes{0.0, 0.0, 1.0} : Unit(across);
        y = Cross(z, x);
    }
    const double angle = betaDegrees * std::numbers::pi / 180.0;
    const double c = std::cos(angle), s = std::sin(angle);
    Axes turnedY{}, turnedZ{};
    for (std::size_t i = 0; i < 3; ++i) {
        turnedY[i] = c * y[i] + s * z[i];
        turnedZ[i] = c * z[i] - s * y[i];
    }
    return {x, turnedY, turnedZ};
}

SixDoubles Six(const Axes& three) {
    return {three[0], three[1], three[2], 0.0, 0.0, 0.0};
}

void AddHead(const Building& building, RecordedModel& model) {
    model.baseUnitSystem = building.inch ? 1 : 2;
    model.zUp = building.zUp;
    model.resultsAvailable = true;
    model.nodeCount = static_cast<std::int32_t>(building.nodes.size());
    model.memberCount = static_cast<std::int32_t>(building.members.size());
    model.primaryLoadCaseCount = static_cast<std::int32_t>(building.primaryLoadCases.size());
    model.loadCombinationCount = static_cast<std::int32_t>(building.loadCombinations.size());
    model.primaryLoadCases = building.primaryLoadCases;
    model.loadCombinations = building.loadCombinations;
}

}  // namespace

const Building::Node& Building::FindNode(std::int32_t number) const {
    for (const Node& node : nodes)
        if (node.number == number) return node;
    throw std::out_of_range("no node " + std::to_string(number));
}

Building RandomBuilding(std::uint64_t seed) {
    return Frame(seed, false).Build();
}

Building RandomSymmetricBuilding(std::uint64_t seed) {
    return Frame(seed, true).Build();
}

RecordedModel AsHostModel(const Building& building) {
    const double lengths = building.inch ? 1.0 / kMillimetresPerInch : 1e-3;
    const double forceUnits = building.inch ? 1.0 / kNewtonsPerPoundForce : 1.0;
    RecordedModel model;
    AddHead(building, model);
    model.nodeList.emplace();
    for (const Building::Node& node : building.nodes) {
        model.nodeList->push_back(node.number);
        RecordedNode& recorded = model.nodes[model.AddNode(node.number)];
        recorded.xyz = Times(lengths, InHostAxes(node.at, building.zUp));
        recorded.support = node.supported ? 1 : 0;
    }
    model.memberList.emplace();
    std::map<std::int32_t, std::array<Axes, 3>> localAxes;
    for (const Building::Member& member : building.members) {
        model.memberList->push_back(member.number);
        RecordedMember& recorded = model.members[model.AddMember(member.number)];
        recorded.endNodes = RecordedMember::EndNodes{member.start, member.end};
        recorded.beta = member.beta;
        const PlanVector along =
            Difference(building.FindNode(member.end).at, building.FindNode(member.start).at);
        localAxes[member.number] =
            LocalAxes(InHostAxes(along, building.zUp), member.beta, building.zUp);
    }
    for (const auto& [key, displacement] : building.displacements)
        model.displacements.Store(*model.FindNode(key.second), key.first,
                                  Six(Times(lengths, InHostAxes(displacement, building.zUp))));
    for (const auto& [key, force] : building.forces) {
        const auto& [loadCase, member, end] = key;
        const Axes global = Times(forceUnits, InHostAxes(force, building.zUp));
        const auto& [x, y, z] = localAxes.at(member);
        model.endForces[static_cast<std::size_t>(end)].Store(
            *model.FindMember(member), loadCase,
            Six({Dot(global, x), Dot(global, y), Dot(global, z)}));
    }
    return model;
}

std::string InputFileOf(const Building& building) {
    std::string text = "DeadLoadCaseNumber," + std::to_string(building.deadLoadCase) +
                       ",\nEarthquakeLoadCaseNumber," + std::to_string(building.earthquakeX) + "," +
                       std::to_string(building.earthquakeZ) + ",\nMemberDeformAngle,";
    for (const std::int32_t member : building.reportedMembers)
        text += std::to_string(member) + ",";
    return text + "\nFIN\n";
}
