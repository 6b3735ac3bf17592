#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// Factor from a unit of the tables to the model's: times one whole number over another, so that a
/// value comes out as near as can be (3500 mm are exactly 3.5 m).
struct UnitFactor {
    double multiplier = 1.0;
    double divisor = 1.0;

    double operator()(double value) const { return value * multiplier / divisor; }
};

/// A factor of two units that are multiplied: force times length.
UnitFactor operator*(const UnitFactor& a, const UnitFactor& b);

/// A unit of the tables.
struct TableUnit {
    const char* name = "";
    UnitFactor toMetric;   ///< to m or kN
    UnitFactor toEnglish;  ///< to inch; to kip for kip itself
    bool isEnglish = false;
};

std::span<const TableUnit> LengthUnits();  ///< m, cm, mm, in, ft
std::span<const TableUnit> ForceUnits();   ///< kN, N, tf, kgf, kip, lbf

/// Null for a name that is none of them.
const TableUnit* FindUnit(std::span<const TableUnit> units, std::string_view name);
