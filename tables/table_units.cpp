#include "tables/table_units.h"

#include <algorithm>

#include "host/units.h"

namespace {

constexpr TableUnit kLengthUnits[] = {
    {"m", {1.0, 1.0}, {10000.0, 254.0}},          {"cm", {1.0, 100.0}, {100.0, 254.0}},
    {"mm", {1.0, 1000.0}, {10.0, 254.0}},         {"in", {254.0, 10000.0}, {1.0, 1.0}, true},
    {"ft", {3048.0, 10000.0}, {12.0, 1.0}, true},
};

// 1 tf is the weight of 1000 kg under 9.80665 m/s2. English models have kip only.
constexpr TableUnit kForceUnits[] = {
    {"kN", {1.0, 1.0}, {1.0, 1.0}},
    {"N", {1.0, 1000.0}, {1.0, 1.0}},
    {"tf", {980665.0, 100000.0}, {1.0, 1.0}},
    {"kgf", {980665.0, 100000000.0}, {1.0, 1.0}},
    {"kip", {kKnPerKip, 1.0}, {1.0, 1.0}, true},
    {"lbf", {kKnPerKip, 1000.0}, {1.0, 1.0}, true},
};

}  // namespace

UnitFactor operator*(const UnitFactor& a, const UnitFactor& b) {
    return {a.multiplier * b.multiplier, a.divisor * b.divisor};
}

std::span<const TableUnit> LengthUnits() {
    return kLengthUnits;
}

std::span<const TableUnit> ForceUnits() {
    return kForceUnits;
}

const TableUnit* FindUnit(std::span<const TableUnit> units, std::string_view name) {
    const auto found =
        std::ranges::find_if(units, [name](const TableUnit& unit) { return name == unit.name; });
    return found == units.end() ? nullptr : &*found;
}
