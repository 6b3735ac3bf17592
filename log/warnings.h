#pragma once

#include <span>
#include <string>
#include <string_view>

/// What a run can warn of: everything by which a step refuses or adjusts its work.
enum class WarningKind {
    // No run, or no results.
    kResultsNotAvailable,
    kCannotOpenInput,    ///< with a path
    kCannotOpenResults,  ///< with a path

    // The input file has no FIN line within the limit, told by each of its readers.
    kTooManyLinesForLoadCases,
    kTooManyLinesForFloors,
    kTooManyLinesForStoryMembers,
    kTooManyLinesForReportedMembers,
    kTooManyLinesForAllowableValues,

    // A story line names a story that does not exist.
    kNoSuchStoryForMembers,
    kNoSuchStoryForAngle,
    kNoSuchStoryForRatio,
    kNoSuchStoryForModulus,

    // A member whose end node is not in the host's list, or which has no length.
    kNodeMissingForMember,
    kMemberWithoutLength,
    kNodeMissingForFloor,
    kNodeMissingForLowerNode,
    kNodeMissingForUpperNode,
    kNodeMissingForHeight,
    kNodeMissingForNamedStoryMember,
    kNodeMissingForStoryMember,
    kNodeMissingForGravityCenter,

    // A step that lacks what an earlier one should have left.
    kNoNodesForGravityCenter,
    kNoStoriesForAllowableValues,
    kNoStoriesForBaseVector,
    kNoStoriesForDrift,
    kNoStoriesForRsBar,
    kNoStoriesForGravityCenter,
    kNoStoriesForShear,
    kNoStoriesForStiffness,
    kNoStoriesForRigidityCenter,
    kNoStoriesForModulus,

    // A fallback value in a story.
    kNoWeight,
    kNoKzForRigidityCenter,
    kNoKxForRigidityCenter,
    kNoTorsionalStiffness,
    kNoKxForModulus,
    kNoKzForModulus,
};

/// One warning of a run: the line of the log is formed from it, and so is what it means in plain
/// words.
struct Warning {
    WarningKind kind{};
    int story = 0;     ///< counted from 1; 0 for a warning that is about no story
    std::string path;  ///< of the file that could not be opened; else empty

    bool operator==(const Warning&) const = default;
};

/// How bad a warning is for whoever files the results.
enum class WarningWeight {
    kError,    ///< a check was not made, or something written was dropped
    kWarning,  ///< a fallback value stands in the results
};

/// The texts of one kind. {story} stands for the story's number, {path} for the file's path.
struct WarningTexts {
    WarningKind kind;
    WarningWeight weight;
    std::string_view log;  ///< as the log has it, spelling included
    std::string_view en;   ///< what it means and what to do
    std::string_view ja;
};

/// One row for each kind, in the order of the kinds.
std::span<const WarningTexts> AllWarningTexts();

const WarningTexts& TextsOf(WarningKind kind);

/// `text` with the warning's story and path in their places.
std::string FillIn(std::string_view text, const Warning& warning);
