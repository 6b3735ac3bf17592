#pragma once

#include <string>

#include "input/input_check.h"
#include "input/lint_finding.h"
#include "lint/model_view.h"

// The rules of an input file against a model, by what they look at. Each adds what it finds.

/// M01 to M03: load cases, results.
void CheckCasesOfModel(const ModelView& view, HostQueries& host, LintFindingList& findings);

/// M18 to M20: members without nodes or length, repeated numbers, oblique axes.
void CheckSoundnessOfModel(const ModelView& view, LintFindingList& findings);

/// M04 to M08: levels of the file and levels that were derived.
void CheckLevelsOfModel(const ModelView& view, const InputCheck& check, LintFindingList& findings);

/// M12 and M17: members of the file that the model does not have, or that are in no story.
void CheckNumbersOfMembers(const ModelView& view, const InputCheck& check,
                           LintFindingList& findings);

/// M09, M10, M13 to M16, M21, M27: members of the stories.
void CheckMembersOfStories(const ModelView& view, LintFindingList& findings);

/// Members that a story's cutting plane meets and that are not counted there, those left out that
/// the file should name (M16). In the host's order.
std::vector<PlacedMember> NotCounted(const ModelView& view, const MeantStory& story);

/// Whether a member that the file names for several stories runs through all of them.
bool SpansItsStories(const ModelView& view, std::int32_t member);

/// M11, M22 to M26: asks the host for results, as a run does. `modelName`: what to call the model.
void CheckResultsOfModel(ModelView& view, const std::string& modelName,
                         const std::string& recordedFor, LintFindingList& findings);
