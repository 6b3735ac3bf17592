#include "tables/building_tables.h"

#include <cmath>
#include <utility>

#include "host/units.h"
#include "route2/floor_levels.h"
#include "route2/node_table.h"
#include "tables/missing_answers.h"
#include "tables/vertical_axis.h"

namespace {

// Units and axes for the other tables where model.csv does not say them: their faults are told
// all the same.
ModelStatement AnyStatement() {
    ModelStatement statement;
    statement.zUp = true;
    statement.lengthUnit = statement.displacementUnit = &LengthUnits().front();
    statement.forceUnit = &ForceUnits().front();
    return statement;
}

void TellUnknownRoles(const InputRoles& roles, const TableCases& cases, TableFaults& faults) {
    const auto tell = [&](std::int32_t loadCase, const char* role) {
        if (!cases.Find(loadCase))
            faults.Add(TableName::kCases, "case " + std::to_string(loadCase) + ": no row; " +
                                              roles.inputPath + " names it as " + role);
    };
    if (roles.dead) tell(*roles.dead, "the dead load");
    for (const std::int32_t loadCase : roles.earthquake)
        tell(loadCase, "an earthquake case");
}

}  // namespace

std::optional<BuildingTables> ReadBuildingTables(const std::string& folder,
                                                 const std::optional<InputRoles>& input,
                                                 TableFaults& faults,
                                                 std::vector<std::string>& cautions) {
    BuildingTables tables;
    tables.statement = ReadModelStatement(folder, faults, cautions).value_or(AnyStatement());
    tables.nodes = ReadNodes(folder, tables.statement, faults);
    tables.isHeld = ReadSupports(folder, tables.nodes, faults);
    tables.members = ReadMembers(folder, tables.statement, tables.nodes, faults);
    tables.cases = TableCases::Read(folder, faults);
    if (input && tables.cases.IsRead()) TellUnknownRoles(*input, tables.cases, faults);

    const TableSubjects subjects{folder, tables.statement, tables.nodes, tables.members,
                                 tables.cases};
    const TableFrames frames =
        ReadLocalFrames(folder, tables.statement, tables.nodes, tables.members, faults);
    const bool areDisplacementsRead = ReadDisplacements(subjects, faults, tables.displacements);
    const bool areForcesRead = ReadEndForces(subjects, frames.ofBars, faults, tables.endForces);
    tables.areForcesGlobal = tables.statement.endForceAxes != EndForceAxes::kTool;
    tables.reactions = ReadReactions(subjects, faults);
    TellMissingAxes(tables, frames, faults);
    TellMissingAnswers(tables, input, areDisplacementsRead, areForcesRead, faults);
    if (!faults.Any()) return tables;
    // Seen along a wrong axis, beams stand upright and lack forces.
    const bool isStated = tables.statement.PlaceOf("verticalAxis").line > 0;
    auto wrong = isStated ? WrongVerticalAxis(tables) : std::nullopt;
    if (wrong) cautions.push_back(std::move(*wrong));
    return std::nullopt;
}

Vec3 InMillimetres(const BuildingTables& tables, const Vec3& point) {
    const double factor = tables.statement.IsEnglish() ? kMillimetresPerInch : kMillimetresPerMetre;
    return {point.x * factor, point.y * factor, point.z * factor};
}

bool IsLevel(const BuildingTables& tables, std::size_t bar) {
    const auto heightOf = [&](std::size_t node) {
        return Vertical(InMillimetres(tables, tables.nodes.points[node]), tables.statement.zUp);
    };
    const TableMember& member = tables.members.Bar(bar);
    const EndHeights heights{0, 0, heightOf(*member.startNode), heightOf(*member.endNode)};
    return LevelOfHorizontalMember(heights).has_value();
}

namespace {

void AddNodes(const BuildingTables& tables, RecordedModel& model) {
    const std::vector<std::int32_t> numbers = tables.nodes.names.Numbers();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        RecordedNode& node = model.nodes[model.AddNode(numbers[i])];
        const Vec3& point = tables.nodes.points[i];
        node.xyz = {point.x, point.y, point.z};
        node.support = tables.isHeld[i] ? 1 : 0;
    }
    model.nodeList = numbers;
    model.nodeCount = static_cast<std::int32_t>(numbers.size());
}

std::vector<bool> IsBarByRow(const TableMembers& members) {
    std::vector<bool> isBar;
    for (const TableMember& row : members.rows)
        isBar.push_back(row.isBar);
    return isBar;
}

void AddMembers(const BuildingTables& tables, RecordedModel& model) {
    const std::vector<std::int32_t> nodeNumbers = tables.nodes.names.Numbers();
    const std::vector<std::int32_t> numbers =
        tables.members.names.Numbers(IsBarByRow(tables.members));
    model.memberList.emplace();
    for (const std::size_t row : tables.members.bars) {
        const TableMember& bar = tables.members.rows[row];
        RecordedMember& member = model.members[model.AddMember(numbers[row])];
        member.endNodes = {nodeNumbers[*bar.startNode], nodeNumbers[*bar.endNode]};
        // A host answers with a single-precision number.
        member.beta = static_cast<double>(static_cast<float>(bar.beta));
        model.memberList->push_back(numbers[row]);
    }
    model.memberCount = static_cast<std::int32_t>(model.memberList->size());
}

void AddCases(const BuildingTables& tables, RecordedModel& model) {
    model.primaryLoadCases.emplace();
    model.loadCombinations.emplace();
    for (const TableCase& row : tables.cases.Rows())
        (row.isPrimary ? model.primaryLoadCases : model.loadCombinations)->push_back(row.number);
    model.primaryLoadCaseCount = static_cast<std::int32_t>(model.primaryLoadCases->size());
    model.loadCombinationCount = static_cast<std::int32_t>(model.loadCombinations->size());
}

// Names that are not their numbers.
std::map<std::int32_t, std::string> NamesByNumber(const NameNumbers& names,
                                                  const std::vector<std::int32_t>& numbers,
                                                  const std::vector<bool>& isWanted) {
    std::map<std::int32_t, std::string> byNumber;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (isWanted[i] && names.Name(i) != std::to_string(numbers[i]))
            byNumber.emplace(numbers[i], names.Name(i));
    return byNumber;
}

void AddNames(const BuildingTables& tables, RecordedModel& model) {
    const NameNumbers& nodes = tables.nodes.names;
    model.names.nodes =
        NamesByNumber(nodes, nodes.Numbers(), std::vector<bool>(nodes.size(), true));
    const NameNumbers& members = tables.members.names;
    const std::vector<bool> isBar = IsBarByRow(tables.members);
    model.names.members = NamesByNumber(members, members.Numbers(isBar), isBar);
    for (const TableCase& row : tables.cases.Rows())
        if (!row.name.empty()) model.names.loadCases.emplace(row.number, row.name);
}

}  // namespace

RecordedModel ModelOf(BuildingTables&& tables) {
    constexpr std::int32_t kEnglishUnits = 1, kMetricUnits = 2;
    RecordedModel model;
    model.modelPath = tables.statement.modelPath;
    model.baseUnitSystem = tables.statement.IsEnglish() ? kEnglishUnits : kMetricUnits;
    model.zUp = tables.statement.zUp;
    model.resultsAvailable = true;
    AddNodes(tables, model);
    AddMembers(tables, model);
    AddCases(tables, model);
    AddNames(tables, model);
    model.source = tables.statement.source;
    model.displacements = std::move(tables.displacements);
    (tables.areForcesGlobal ? model.endForcesGlobal : model.endForces) =
        std::move(tables.endForces);
    return model;
}
