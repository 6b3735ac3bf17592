#pragma once

#include <span>

#include "input/lint_finding.h"

/// What an input file alone can show, without a model: one row of texts each.
enum class FileRule {
    // The file as a whole.
    kF01Missing,
    kF01Folder,
    kF01NoRegularFile,
    kF01Refused,
    kF02,
    kF03,
    kF04,
    kF05,
    kF05WithKeywords,
    kF06,
    kF07AtKeyword,
    kF07,
    kF08,
    kF09,
    kF10,
    kF11,
    kF12List,
    kF12StoryLine,
    kF12,
    kF13,
    kF14,
    kF15,
    kF16,

    // Keywords and lines.
    kK01,
    kK02,
    kK03,
    kK03Repeats,
    kK04,
    kK05,
    kK06,
    kK07FirstCounts,
    kK07LastCounts,
    kK08,
    kK09Unknown,
    kK09InBlock,

    // Load cases.
    kL01,
    kL02,
    kL03,
    kL04,
    kL05,
    kL06,
    kL07,

    // Floor levels.
    kV01,
    kV02,
    kV02Harmless,
    kV03,
    kV04,
    kV05,
    kV06,
    kV07,
    kV08,
    kV08Empty,
    kV09TooClose,
    kV09Low,
    kV09High,
    kV10,

    // Story members.
    kS01,
    kS02,
    kS03,
    kS03NoMember,
    kS04,
    kS05,
    kS06,
    kS07,
    kS08,
    kS09,
    kS09DoesNotSpan,
    kS10NoStoryLine,
    kS10ReadAs,
    kS11,

    // Allowable values.
    kA01Passes,
    kA01Fails,
    kA02,
    kA03,
    kA03StoryMember,
    kA04,
    kA05Angle,
    kA05Ratio,
    kA05Modulus,
    kA06,
    kA07,
    kA08,
    kA09,
    kA10,
    kA11,
    kA12,
    kA13,

    // Members to report.
    kD01,
    kD01Only,
    kD02,
    kD02NoMember,
    kD02Empty,
};

/// One row for each rule, in their order.
std::span<const LintRule> AllFileRules();

/// A finding of `rule` at `place`, to be filled in.
LintFinding FindingOf(FileRule rule, const InputPlace& place);
