#pragma once

#include <string>

#include "tables/case_roles.h"
#include "tables/checked_building.h"
#include "tables/statement_findings.h"

/// What was read from the tables: counts, what was left out, load cases, weights and shears of the
/// stories, and which checks the tables passed. Some lines for people.
std::string ImportReport(const CheckedBuilding& building, const CaseRoles& roles,
                         const StatementFindings& findings);
