#include "tables/statement_checks.h"

#include "tables/vertical_axis.h"

StatementFindings CheckStatements(const CheckSubject& subject) {
    StatementFindings findings;
    const BuildingTables& tables = subject.building.Tables();
    if (auto wrong = WrongVerticalAxis(tables)) {
        findings.wrong.push_back(std::move(*wrong));
        return findings;
    }
    if (HeldNodesOfBars(tables).empty())
        findings.unusual.push_back(std::string(FileNameOf(TableName::kSupports)) +
                                   ": no node that a member stands on is held; the feet of the "
                                   "building are expected");
    else
        findings.passed.push_back("the held nodes are at the foot of the building");
    CheckUnits(subject, findings);
    CheckSenses(subject, findings);
    CheckReactions(subject, findings);
    return findings;
}
