#include "tables/import_tables.h"

#include <algorithm>
#include <utility>

#include "platform/one_line.h"
#include "tables/import_report.h"
#include "tables/statement_checks.h"

namespace {

bool AreAllCounted(const TableFaults& faults) {
    const auto isCutOff = [&faults](TableName table) { return faults.HasTooMany(table); };
    return std::ranges::none_of(kAllTables, isCutOff);
}

TablesImport Import(const std::string& folder, const std::optional<InputRoles>& input) {
    TablesImport import;
    TableFaults faults;
    auto tables = ReadBuildingTables(folder, input, faults, import.cautions);
    import.faults = faults.Lines();
    import.faultCount = faults.Count();
    import.areAllFaultsCounted = AreAllCounted(faults);
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

// Names of nodes and members stand in the lines, and may hold any character.
void WriteOutControlCharacters(TablesImport& import) {
    for (auto* lines :
         {&import.faults, &import.cautions, &import.findings.wrong, &import.findings.unusual})
        for (std::string& line : *lines)
            line = OneLine(line);
}

}  // namespace

TablesImport ImportTables(const std::string& folder, const std::optional<InputRoles>& input) {
    TablesImport import = Import(folder, input);
    WriteOutControlCharacters(import);
    return import;
}
