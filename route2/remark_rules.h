#pragma once

#include <vector>

#include "route2/findings.h"

// The rules of the remarks, by what they look at. Each appends what it finds.

void RemarkOnCasesAndFloors(const Findings& findings, std::vector<Remark>& remarks);
void RemarkOnMembers(const Findings& findings, std::vector<Remark>& remarks);
void RemarkOnLoads(const Findings& findings, std::vector<Remark>& remarks);
void RemarkOnResults(const Findings& findings, std::vector<Remark>& remarks);
void RemarkOnTheRun(const Findings& findings, std::vector<Remark>& remarks);
