#include "tables/missing_answers.h"

#include <algorithm>
#include <set>

namespace {

// The cases whose answers must be there, in the order of cases.csv.
std::vector<std::int32_t> NeededCases(const BuildingTables& tables,
                                      const std::optional<InputRoles>& input) {
    std::set<std::int32_t> needed;
    if (input) {
        needed.insert(input->earthquake.begin(), input->earthquake.end());
        if (input->dead) needed.insert(*input->dead);
    } else {
        for (const AnswerTable* table :
             {&tables.displacements, &tables.endForces.front(), &tables.endForces.back()})
            for (const std::int32_t loadCase : table->LoadCases())
                needed.insert(loadCase);
    }
    std::vector<std::int32_t> ordered;
    for (const TableCase& row : tables.cases.Rows())
        if (needed.contains(row.number)) ordered.push_back(row.number);
    return ordered;
}

// Of a bar whose ends could not be found nobody knows whether it is level.
bool IsNeeded(const BuildingTables& tables, std::size_t bar) {
    return tables.members.Bar(bar).hasLength && !IsLevel(tables, bar);
}

std::vector<bool> NeededNodes(const BuildingTables& tables) {
    std::vector<bool> isNeeded(tables.nodes.names.size(), false);
    for (std::size_t bar = 0; bar < tables.members.bars.size(); ++bar) {
        if (!IsNeeded(tables, bar)) continue;
        isNeeded[*tables.members.Bar(bar).startNode] = true;
        isNeeded[*tables.members.Bar(bar).endNode] = true;
    }
    return isNeeded;
}

std::string CaseText(std::int32_t loadCase) {
    return "case " + std::to_string(loadCase) + ", ";
}

void TellMissingDisplacements(const BuildingTables& tables, std::int32_t loadCase,
                              const std::vector<bool>& isNeeded, TableFaults& faults) {
    for (std::size_t node = 0; node < isNeeded.size(); ++node)
        if (isNeeded[node] && tables.displacements.Find(node, loadCase) == nullptr)
            faults.Add(
                TableName::kDisplacements,
                CaseText(loadCase) + "node " + tables.nodes.names.Name(node) + ": no displacement");
}

void TellMissingForces(const BuildingTables& tables, std::int32_t loadCase, TableFaults& faults) {
    for (std::size_t bar = 0; bar < tables.members.bars.size(); ++bar) {
        if (!IsNeeded(tables, bar)) continue;
        const bool hasStart = tables.endForces[0].Find(bar, loadCase) != nullptr;
        const bool hasEnd = tables.endForces[1].Find(bar, loadCase) != nullptr;
        if (hasStart && hasEnd) continue;
        const char* const where = hasStart ? " at the end" : hasEnd ? " at the start" : "";
        faults.Add(TableName::kForces, CaseText(loadCase) + "member " +
                                           tables.members.BarName(bar) + ": no forces" + where);
    }
}

}  // namespace

void TellMissingAxes(const BuildingTables& tables, const TableFrames& frames, TableFaults& faults) {
    const auto hasForces = [&tables](std::size_t bar) {
        return std::ranges::any_of(tables.cases.Rows(), [&](const TableCase& row) {
            return tables.endForces[0].Find(bar, row.number) != nullptr ||
                   tables.endForces[1].Find(bar, row.number) != nullptr;
        });
    };
    for (const std::size_t bar : frames.withoutRow)
        if (hasForces(bar))
            faults.Add(TableName::kAxes, "member " + tables.members.BarName(bar) +
                                             ": no axes; a vector in its local x-y plane is "
                                             "expected");
}

void TellMissingAnswers(const BuildingTables& tables, const std::optional<InputRoles>& input,
                        bool areDisplacementsRead, bool areForcesRead, TableFaults& faults) {
    const std::vector<bool> isNodeNeeded = NeededNodes(tables);
    for (const std::int32_t loadCase : NeededCases(tables, input)) {
        if (areDisplacementsRead) TellMissingDisplacements(tables, loadCase, isNodeNeeded, faults);
        if (areForcesRead) TellMissingForces(tables, loadCase, faults);
    }
}
