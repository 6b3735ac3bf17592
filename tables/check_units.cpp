#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "host/units.h"
#include "tables/statement_checks.h"
#include "tables/vectors.h"

namespace {

// Within `least` and `most` a figure may be that of a building; within the usual ones it mostly is.
struct Range {
    double least, most;
    double leastUsual, mostUsual;
    double typical;

    bool Holds(double value) const { return value >= least && value <= most; }
    bool IsUsual(double value) const { return value >= leastUsual && value <= mostUsual; }
};

constexpr Range kExtent{1.0, 1000.0, 3.0, 300.0, 30.0};       // m
constexpr Range kDisplacement{1e-5, 1e-1, 1e-4, 2e-2, 2e-3};  // of the height
constexpr Range kWeight{0.3, 60.0, 2.0, 30.0, 9.0};           // kN/m2 of floor
constexpr double kStoryHeight = 3.5;                          // m

// What of a building's size the units decide.
struct Sizes {
    double extent = 0.0;  ///< the largest of the three, m
    double height = 0.0;  ///< m
    double planX = 0.0, planSecond = 0.0;
    double displacement = 0.0;  ///< the largest, m
    std::int32_t displacementCase = 0;
    std::size_t displacementNode = 0;
    std::optional<double> weight;  ///< on the base under the dead load, kN

    double Stories() const { return std::max(1.0, std::round(height / kStoryHeight)); }
    double OfHeight() const { return displacement / height; }
    std::optional<double> WeightPerFloor() const {
        if (!weight) return std::nullopt;
        return std::abs(*weight) / (planX * planSecond * Stories());
    }
};

// Factors from the stated units to others.
struct UnitChange {
    double length = 1.0, displacement = 1.0, force = 1.0;
};

Sizes Changed(Sizes sizes, const UnitChange& change) {
    for (double* const length : {&sizes.extent, &sizes.height, &sizes.planX, &sizes.planSecond})
        *length *= change.length;
    sizes.displacement *= change.displacement;
    if (sizes.weight) *sizes.weight *= change.force;
    return sizes;
}

Vec3 ExtentOf(const CheckedBuilding& building) {
    constexpr double kFar = std::numeric_limits<double>::infinity();
    Vec3 least{kFar, kFar, kFar}, greatest{-kFar, -kFar, -kFar};
    for (const std::size_t node : building.Nodes()) {
        const Vec3 p = building.Point(node);
        least = {std::min(least.x, p.x), std::min(least.y, p.y), std::min(least.z, p.z)};
        greatest = {std::max(greatest.x, p.x), std::max(greatest.y, p.y),
                    std::max(greatest.z, p.z)};
    }
    return Minus(greatest, least);
}

void FindLargestDisplacement(const CheckedBuilding& building, Sizes& sizes) {
    for (const TableCase& row : building.Tables().cases.Rows())
        for (const std::size_t node : building.Nodes()) {
            const double moved =
                LengthOf(building.Displacement(node, row.number)) / kMillimetresPerMetre;
            if (moved <= sizes.displacement) continue;
            sizes.displacement = moved;
            sizes.displacementCase = row.number;
            sizes.displacementNode = node;
        }
}

Sizes SizesOf(const CheckSubject& subject) {
    const CheckedBuilding& building = subject.building;
    const Vec3 extent = Times(ExtentOf(building), 1.0 / kMillimetresPerMetre);
    Sizes sizes;
    sizes.extent = std::max({extent.x, extent.y, extent.z});
    sizes.height = building.HeightOf(extent);
    sizes.planX = extent.x;
    sizes.planSecond = PlanZ(extent, building.ZUp());
    FindLargestDisplacement(building, sizes);
    if (!subject.roles.dead || !building.IsLoaded(*subject.roles.dead)) return sizes;
    // A force that is no weight says nothing about units; the check of the axes tells of it.
    const Vec3 force = ForceFromBelow(building, subject.cut, *subject.roles.dead);
    const double up = building.HeightOf(force);
    if (std::abs(up) >= LengthOf(building.InPlan(force))) sizes.weight = up;
    return sizes;
}

// A plan without an area (a single frame) has no weight per floor.
bool HasPlan(const Sizes& sizes) {
    return sizes.planX > 0.0 && sizes.planSecond > 0.0;
}

bool AreThoseOfABuilding(const Sizes& sizes) {
    const auto weight = sizes.WeightPerFloor();
    return kExtent.Holds(sizes.extent) && kDisplacement.Holds(sizes.OfHeight()) &&
           (!weight || !HasPlan(sizes) || kWeight.Holds(*weight));
}

// How far the figures are from those of a typical building: the less, the better.
double Strangeness(const Sizes& sizes) {
    const auto distance = [](double value, const Range& range) {
        return std::abs(std::log(value / range.typical));
    };
    const auto weight = sizes.WeightPerFloor();
    return distance(sizes.extent, kExtent) + distance(sizes.OfHeight(), kDisplacement) +
           (weight && HasPlan(sizes) ? distance(*weight, kWeight) : 0.0);
}

// Other units for the three statements; null where the stated one stays.
struct OtherUnits {
    const TableUnit* length = nullptr;
    const TableUnit* displacement = nullptr;
    const TableUnit* force = nullptr;

    int Count() const {
        return (length != nullptr ? 1 : 0) + (displacement != nullptr ? 1 : 0) +
               (force != nullptr ? 1 : 0);
    }
};

double FactorTo(const TableUnit& stated, const TableUnit* other) {
    return other == nullptr ? 1.0 : other->toMetric(1.0) / stated.toMetric(1.0);
}

std::vector<const TableUnit*> Choices(std::span<const TableUnit> units, const TableUnit* stated) {
    std::vector<const TableUnit*> choices{nullptr};
    for (const TableUnit& unit : units)
        if (&unit != stated) choices.push_back(&unit);
    return choices;
}

UnitChange FactorsTo(const ModelStatement& statement, const OtherUnits& others) {
    return {FactorTo(*statement.lengthUnit, others.length),
            FactorTo(*statement.displacementUnit, others.displacement),
            FactorTo(*statement.forceUnit, others.force)};
}

// How unlikely it is that a program has another unit than stated: less so within one system.
double Unlikeliness(const TableUnit& stated, const TableUnit* other) {
    constexpr double kWrongStatement = 0.7, kOtherSystem = 1.0;
    if (other == nullptr) return 0.0;
    return other->isEnglish == stated.isEnglish ? kWrongStatement : kWrongStatement + kOtherSystem;
}

// The other units with which all figures are those of a building, the likeliest first: few wrong
// statements, and the figures of a typical building.
std::vector<OtherUnits> UnitsThatFit(const ModelStatement& statement, const Sizes& sizes) {
    std::vector<std::pair<double, OtherUnits>> fitting;
    for (const TableUnit* length : Choices(LengthUnits(), statement.lengthUnit))
        for (const TableUnit* moved : Choices(LengthUnits(), statement.displacementUnit))
            for (const TableUnit* force : Choices(ForceUnits(), statement.forceUnit)) {
                const OtherUnits others{length, moved, force};
                const Sizes changed = Changed(sizes, FactorsTo(statement, others));
                if (AreThoseOfABuilding(changed))
                    fitting.emplace_back(Strangeness(changed) +
                                             Unlikeliness(*statement.lengthUnit, length) +
                                             Unlikeliness(*statement.displacementUnit, moved) +
                                             Unlikeliness(*statement.forceUnit, force),
                                         others);
            }
    std::ranges::stable_sort(fitting, {}, [](const auto& entry) { return entry.first; });
    std::vector<OtherUnits> units;
    units.reserve(fitting.size());
    for (const auto& entry : fitting)
        units.push_back(entry.second);
    return units;
}

std::string TextOf(const OtherUnits& units) {
    std::string text;
    const auto add = [&text](const char* key, const TableUnit* unit) {
        if (unit != nullptr)
            text += std::string(text.empty() ? "" : " and ") + key + " " + unit->name;
    };
    add("lengthUnit", units.length);
    add("displacementUnit", units.displacement);
    add("forceUnit", units.force);
    return text;
}

// The same one statement, and no other, is another in both.
bool AreOfOneStatement(const OtherUnits& a, const OtherUnits& b) {
    return a.Count() == 1 && b.Count() == 1 && (a.length == nullptr) == (b.length == nullptr) &&
           (a.force == nullptr) == (b.force == nullptr);
}

const char* OnlyUnitOf(const OtherUnits& units) {
    if (units.length != nullptr) return units.length->name;
    return units.force != nullptr ? units.force->name : units.displacement->name;
}

// Names the likeliest units: each unit that would do for one statement, or the first few ways to
// change several of them.
std::string TextOf(const std::vector<OtherUnits>& fitting) {
    constexpr std::size_t kMostWays = 3;
    if (fitting.empty()) return "no other unit would fit; do the tables belong to one building?";
    const OtherUnits& best = fitting.front();
    std::string text = TextOf(best);
    for (std::size_t i = 1; i < fitting.size(); ++i) {
        if (AreOfOneStatement(best, fitting[i]))
            text += std::string(" or ") + OnlyUnitOf(fitting[i]);
        else if (best.Count() > 1 && i < kMostWays)
            text += ", or " + TextOf(fitting[i]);
    }
    return text + " would fit";
}

// One of the figures, where it comes from, and what is expected of it.
struct SizeFigure {
    const char* key;  ///< the statement that it hangs on most
    double value;
    const Range& range;
    std::string text;
    const char* expected;
};

std::vector<SizeFigure> FiguresOf(const CheckSubject& subject, const Sizes& sizes) {
    const CheckedBuilding& building = subject.building;
    std::vector<SizeFigure> figures;
    figures.push_back({"lengthUnit", sizes.extent, kExtent,
                       "the largest extent of the building is " + FigureText(sizes.extent) + " m",
                       "1 to 1000 m"});
    figures.push_back(
        {"displacementUnit", sizes.OfHeight(), kDisplacement,
         "the largest displacement, " + FigureText(sizes.displacement * kMillimetresPerMetre) +
             " mm" +
             (sizes.displacement > 0.0
                  ? " (case " + std::to_string(sizes.displacementCase) + ", node " +
                        building.Tables().nodes.names.Name(sizes.displacementNode) + ")"
                  : "") +
             ", is " + FigureText(sizes.OfHeight()) + " of the building's height of " +
             FigureText(sizes.height) + " m",
         "0.00001 to 0.1"});
    const auto weight = sizes.WeightPerFloor();
    if (weight && HasPlan(sizes))
        figures.push_back({"forceUnit", *weight, kWeight,
                           "the dead load (case " + std::to_string(*subject.roles.dead) +
                               ") puts " + FigureText(std::abs(*sizes.weight)) +
                               " kN on the base, " + FigureText(*weight) + " kN/m2 of a plan of " +
                               FigureText(sizes.planX) + " m by " + FigureText(sizes.planSecond) +
                               " m times " + FigureText(sizes.Stories()) +
                               " stories of about 3.5 m",
                           "0.3 to 60 kN/m2"});
    return figures;
}

// The range that is usual, and the unit that would make the figure a usual one, if one does.
std::string UsualUnit(const ModelStatement& statement, const SizeFigure& figure) {
    const std::string_view key = figure.key;
    const bool isForce = key == "forceUnit";
    const TableUnit* const stated = isForce               ? statement.forceUnit
                                    : key == "lengthUnit" ? statement.lengthUnit
                                                          : statement.displacementUnit;
    std::string fitting = "; " + FigureText(figure.range.leastUsual) + " to " +
                          FigureText(figure.range.mostUsual) + " is usual";
    const std::size_t usual = fitting.size();
    double best = std::abs(std::log(figure.value / figure.range.typical));
    for (const TableUnit& unit : isForce ? ForceUnits() : LengthUnits()) {
        const double value = figure.value * FactorTo(*stated, &unit);
        const double distance = std::abs(std::log(value / figure.range.typical));
        if (!figure.range.IsUsual(value) || distance >= best) continue;
        best = distance;
        fitting.resize(usual);
        fitting += std::string("; is it ") + unit.name + "?";
    }
    return fitting;
}

}  // namespace

void CheckUnits(const CheckSubject& subject, StatementFindings& findings) {
    const ModelStatement& statement = subject.building.Tables().statement;
    const Sizes sizes = SizesOf(subject);
    const bool areRight = AreThoseOfABuilding(sizes);
    const auto fitting = areRight ? std::vector<OtherUnits>() : UnitsThatFit(statement, sizes);
    for (const SizeFigure& figure : FiguresOf(subject, sizes)) {
        const std::string line = About(statement, figure.key) + figure.text;
        if (!figure.range.Holds(figure.value))
            findings.wrong.push_back(line + "; " + figure.expected +
                                     " is expected: " + TextOf(fitting));
        else if (areRight && !figure.range.IsUsual(figure.value))
            findings.unusual.push_back(line + UsualUnit(statement, figure));
    }
    if (areRight) findings.passed.push_back("extent, displacements and weight are a building's");
    if (!subject.roles.dead) findings.notChecked.push_back("the weight: no case is the dead load");
}
