#include "tables/import_tables.h"

#include <algorithm>
#include <utility>

#include "tables/import_report.h"
#include "tables/statement_checks.h"

TablesImport ImportTables(const std::string& folder, const std::optional<InputRoles>& input) {
    TablesImport import;
    TableFaults faults;
    auto tables = ReadBuildingTables(folder, input, faults, import.cautions);
    import.faults = faults.Lines();
    import.faultCount = faults.Count();
    import.areAllFaultsCounted = std::ranges::none_of(
        kAllTables, [&faults](TableName table) { return faults.HasTooMany(table);
});
if (!tables) return import;
{
    const CheckedBuilding building(*tables);
    const CaseRoles roles = RolesOf(building, input);
    const BaseCut cut = CutAboveBase(building);
    import.findings = CheckStatements({building, roles, cut});
    import.report = ImportReport(building, roles, import.findings);
}
import.model = ModelOf(std::move(*tables));
return import;
}
