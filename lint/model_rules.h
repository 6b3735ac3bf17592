#pragma once

#include <span>

#include "input/lint_finding.h"

/// What an input file shows against a model: one row of texts each.
enum class ModelRule {
    kM01,
    kM02,
    kM03,
    kM04,
    kM05,
    kM05Base,
    kM06,
    kM07,
    kM08FirstNode,
    kM08LowestLevel,
    kM09,
    kM10,
    kM10MoreThanHalf,
    kM11,
    kM11MoreThanHalf,
    kM12StoryMember,
    kM12Reported,
    kM13,
    kM14,
    kM15,
    kM16,
    kM17,
    kM18NodeMissing,
    kM18NoLength,
    kM19Nodes,
    kM19Members,
    kM20,
    kM21,
    kM22Mostly,
    kM22,
    kM23,
    kM23WithOpposite,
    kM24NoShear,
    kM24NoWeight,
    kM24NegativeWeight,
    kM25,
    kM26Negative,
    kM26HardlyMoves,
    kM27,
};

/// One row for each rule, in their order.
std::span<const LintRule> AllModelRules();

/// A finding of `rule`, to be filled in. Most are about no line of the file.
LintFinding FindingOf(ModelRule rule, const InputPlace& place = {});
