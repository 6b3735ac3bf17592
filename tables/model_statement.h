#pragma once

#include <map>
#include <optional>
#include <string>

#include "tables/csv_rows.h"
#include "tables/source_axes.h"
#include "tables/table_faults.h"
#include "tables/table_units.h"

/// Axes along which the tables give end forces.
enum class EndForceAxes {
    kGlobal,
    kTool,           ///< the tool's own local axes (host/member_axes.h)
    kLocalStandard,  ///< y upwards in the vertical plane, see StandardFrame
    kLocalTable,     ///< y from axes.csv
};

/// What the tables' end forces say.
enum class EndForceSense {
    kOnMember,            ///< what acts on the member's end
    kOnNode,              ///< what the member does to the joint
    kSection,             ///< internal forces of the positive cut face, tension positive
    kSectionCompression,  ///< the same with compression positive
};

const char* NameOf(EndForceAxes axes);
const char* NameOf(EndForceSense sense);

/// What model.csv states about the other tables.
struct ModelStatement {
    bool zUp = false;
    const TableUnit* lengthUnit = nullptr;
    const TableUnit* displacementUnit = nullptr;
    const TableUnit* forceUnit = nullptr;
    EndForceAxes endForceAxes = EndForceAxes::kGlobal;
    EndForceSense endForceSense = EndForceSense::kOnMember;
    SourceAxes sourceAxes;
    std::string source;                    ///< where the tables come from
    std::optional<std::string> modelPath;  ///< on the machine of the host; empty: it has none

    /// Where each key has its value.
    std::map<std::string, TablePlace, std::less<>> places;

    /// Inch and kip, both, are the base units of an English model. All others become m and kN.
    bool IsEnglish() const;

    // From the tables' units to the model's.
    UnitFactor Length() const;
    UnitFactor Displacement() const;
    UnitFactor Force() const;
    UnitFactor Moment() const { return Force() * Length(); }

    TablePlace PlaceOf(std::string_view key) const;
};

/// Reads model.csv. Nothing when it has faults. A key that is none is a line in `cautions`.
std::optional<ModelStatement> ReadModelStatement(const std::string& folder, TableFaults& faults,
                                                 std::vector<std::string>& cautions);
