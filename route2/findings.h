#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/vec3.h"
#include "log/warnings.h"
#include "route2/code_verdict.h"
#include "route2/records.h"
#include "route2/remark.h"
#include "route2/tool_verdict.h"
#include "route2/why_undetermined.h"

// What a run has found, as one plain value: no file, no text, no host. Terminal, calculation sheet,
// JSON, tables and comparisons read it; none of them forms a figure of its own.
//
// Units: mm, kN, kN/mm, kN mm. A figure that was not formed, that rests on a fallback or that is
// not finite has no value. Pairs per direction: [kX] X, [kZ] the second plan direction. Signs are
// the run's own; where an amount is meant, it is said.

/// A figure that may not have been formed.
using Figure = std::optional<double>;

/// The upright story member that moves most in a direction, whatever its sign: of all members where
/// none is upright, the first of equal ones.
struct WorstUprightMember {
    std::optional<std::int32_t> member;
    Figure drift;            ///< mm, signed
    Figure angle;            ///< amount of the drift over the story height
    double allowable = 0.0;  ///< the code's limit, relief of the input included
    CodeVerdict code = CodeVerdict::kUndetermined;
    std::optional<WhyUndetermined> why;
};

/// The largest signed drift, as the rows "Max" of the results have it.
struct ToolMax {
    std::optional<std::int32_t> member;
    Figure drift;  ///< mm, signed
    std::optional<bool> leaning;
    std::optional<ToolVerdict> verdict;  ///< none in X, where nothing is judged
};

/// The figures of one direction of a story, under that direction's earthquake case.
struct DirectionFindings {
    Figure storyShear;           ///< of all members that the cutting plane meets, kN
    Figure shearOfStoryMembers;  ///< kN
    Figure acrossShear;          ///< of the story members, in the other direction, kN
    Figure verticalForce;        ///< of all members that the cutting plane meets, kN
    Figure deadShear;            ///< the same members' shear under the dead load case, kN
    Figure floorResidual;        ///< how far nodes of the upper floor are from moving as one piece,
                                 ///< the largest amount in this direction, mm

    Figure meanDrift;  ///< mm
    Figure meanAngle;
    WorstUprightMember worstUpright;
    ToolMax toolMax;
    std::optional<ToolVerdict> toolMeanVerdict;

    Figure rs;                           ///< story height / mean drift
    Figure rsMean;                       ///< its mean over the stories
    Figure stiffnessRatio;               ///< rs / rsMean
    Figure stiffnessRatioUpright;        ///< the same from the mean drift of the upright members
    Figure stiffnessRatioTranslational;  ///< the same from shear over stiffness of the members
    CodeVerdict stiffnessRatioCode = CodeVerdict::kUndetermined;
    std::optional<WhyUndetermined> stiffnessRatioWhy;
    std::optional<ToolVerdict> stiffnessRatioTool;

    Figure stiffness;      ///< kN/mm
    Figure eccentricity;   ///< amount, across the direction, mm
    Figure elasticRadius;  ///< mm
    Figure eccentricityModulus;
    CodeVerdict eccentricityCode = CodeVerdict::kUndetermined;
    std::optional<WhyUndetermined> eccentricityWhy;
    std::optional<ToolVerdict> eccentricityTool;
};

/// A member that a story's cutting plane meets, or a story member; one entry each time it is named.
struct MemberFindings {
    std::int32_t number = 0;
    bool upright = false;
    double height = 0.0;  ///< of the member itself, mm
    double x = 0.0;       ///< of the lower node, mm
    double v = 0.0;       ///< second plan coordinate of the lower node, mm
    Figure axialForce;    ///< vertical force at the lower end under the dead load, kN
    std::array<Figure, 2> shear;
    std::array<Figure, 2> drift;      ///< under that direction's case; of a member that is not
                                      ///< counted, the difference of its own two nodes
    std::array<Figure, 2> stiffness;  ///< of story members only
};

struct StoryFindings {
    int number = 0;  ///< from 1, lowest first
    double lowerLevel = 0.0;
    double upperLevel = 0.0;
    double height = 0.0;

    std::vector<MemberFindings> members;        ///< the story members, in the records' order
    std::vector<MemberFindings> cutNotCounted;  ///< cut, and no story member; in the host's order

    Figure weightAbove;                    ///< kN
    std::array<Figure, 2> gravityCenter;   ///< plan coordinates
    std::array<Figure, 2> rigidityCenter;  ///< plan coordinates
    Figure torsionalStiffness;

    double allowableAngle = 0.0;  ///< of the input file, or the default
    double allowableRatio = 0.0;
    double allowableModulus = 0.0;

    std::array<DirectionFindings, 2> directions;
};

/// A node and a member of the model, for drawings.
struct ModelNode {
    std::int32_t number = 0;
    Vec3 point;  ///< mm
    bool supported = false;
};
struct ModelMember {
    std::int32_t number = 0;
    std::optional<std::size_t> start;  ///< place among the nodes; none when the node is missing
    std::optional<std::size_t> end;
};

/// The roles of load cases, and which cases the model has.
struct LoadCaseFindings {
    std::int32_t dead = 1;
    EarthquakeCases earthquake{1, 1};
    std::vector<std::int32_t> primary;       ///< in the host's order
    std::vector<std::int32_t> combinations;  ///< in the host's order
};

/// How a run ended.
struct RunEnd {
    bool complete = false;  ///< the run reached "Calculation Complete"
    std::string failure;    ///< why it did not; a sentence without a stop
    bool resultsWritten = false;
    std::vector<std::string> incompleteReports;  ///< paths of reports not written to their end

    std::string missingAnswer;  ///< what the recording does not answer, where that ended the run
    std::string recordedFor;    ///< the input file that the recording was made for
    int unlistedZeros = 0;      ///< answers of 0 to what a file that is no recording does not list
};

struct OverallVerdict {
    CodeVerdict code = CodeVerdict::kUndetermined;
    std::optional<ToolVerdict> tool;  ///< none when the run ended early
};

struct Findings {
    bool zIsVertical = false;
    bool inchUnits = false;
    std::vector<ModelNode> nodes;      ///< in the host's order
    std::vector<ModelMember> members;  ///< in the host's order
    LoadCaseFindings loadCases;
    bool floorLevelsFromInput = false;
    bool storyMembersFromInput = false;

    std::vector<double> floorLevels;     ///< mm, ascending
    std::vector<StoryFindings> stories;  ///< lowest first
    std::vector<Warning> warnings;       ///< of the log, in its order
    int failedExtraQuestions = 0;        ///< asked for the figures after the run
    std::string firstFailedQuestion;     ///< what the host said of it
    std::vector<Remark> remarks;         ///< errors first, then warnings, then notes
    RunEnd end;
    OverallVerdict verdict;

    std::optional<double> groundLevel;  ///< of the input file's sheet lines, mm

    /// Name of the second plan direction: the global axis that is neither X nor vertical.
    char SecondDirection() const { return zIsVertical ? 'Y' : 'Z'; }
};

/// How many of a story's members lean.
int CountLeaning(const StoryFindings& story);
