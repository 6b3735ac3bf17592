#pragma once

#include <vector>

#include "route2/findings.h"

/// Every remark that follows from the findings, errors first, then warnings, then notes; within a
/// kind by the first story. The input file's own remarks are the input check's.
std::vector<Remark> FormRemarks(const Findings& findings);

/// Puts remarks into that order: for whoever adds some.
void SortRemarks(std::vector<Remark>& remarks);

bool HasError(const std::vector<Remark>& remarks);
int CountOf(const std::vector<Remark>& remarks, RemarkKind kind);
