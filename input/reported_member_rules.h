#pragma once

#include "input/lint_finding.h"

struct InputView;

/// The members of the first MemberDeformAngle line.
void CheckReportedMembers(const InputView& view, LintFindingList& findings);
