#pragma once

#include "tables/base_cut.h"
#include "tables/case_roles.h"
#include "tables/checked_building.h"
#include "tables/statement_findings.h"

/// What the checks look at.
struct CheckSubject {
    const CheckedBuilding& building;
    const CaseRoles& roles;
    const BaseCut& cut;
};

// Each finds statements that cannot be right from what must hold for every building.

/// Extent, displacements and weight are those of a building.
void CheckUnits(const CheckSubject& subject, StatementFindings& findings);

/// The ends of unloaded members hold each other, the dead load presses down, earthquakes push
/// forward.
void CheckSenses(const CheckSubject& subject, StatementFindings& findings);

/// What the supports do to the building is what its lowest members get from below.
void CheckReactions(const CheckSubject& subject, StatementFindings& findings);

/// All of them, and the vertical axis before: where that is another one, the others would say
/// nothing.
StatementFindings CheckStatements(const CheckSubject& subject);
