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

/// `value` as a figure: none when it is not finite.
Figure Finite(double value);

/// The upright story member that moves most in a direction, whatever its sign: of all members where
/// none is upright, the first of equal ones.
struct WorstUprightMember {
    std::optional<std::int32_t> member;
    Figure drift;            ///< mm, signed
    Figure angle;            ///< amount of the drift over the story height
    double allowable = 0.0;  ///< the code's limit, relief of the input included
    Figure utilisation;      ///< angle over limit
    CodeVerdict code = CodeVerdict::kUndetermined;
    std::optional<WhyUndetermined> why;
};

/// The largest signed drift, as the rows "Max" of the results have it.
struct ToolMax {
    std::optional<std::int32_t> member;
    Figure drift;  ///< mm, signed
    Figure angle;  ///< drift over the story height, signed
    std::optional<bool> leaning;
    std::optional<ToolVerdict> verdict;  ///< none in X, where nothing is judged
};

/// The numbers of a direction as the rows of the results have them, fallbacks and what is no number
/// included. None where there is no such row.
struct ResultsNumbers {
    std::optional<double> meanDrift;  ///< mm
    std::optional<double> meanAngle;
    std::optional<double> maxDrift;  ///< mm
    std::optional<double> maxAngle;
    std::optional<double> stiffnessRatio;
    std::optional<double> eccentricityModulus;
};

/// What a story that fails one of the limits is asked to carry more under the procedure of the
/// ultimate capacity.
struct ShapeFactors {
    Figure stiffness;     ///< F_s
    Figure eccentricity;  ///< F_e
    Figure product;       ///< F_es
};

/// The figures of one direction of a story, under that direction's earthquake case.
struct DirectionFindings {
    Figure storyShear;           ///< of all members that the cutting plane meets, kN
    Figure shearOfStoryMembers;  ///< kN
    Figure acrossShear;          ///< of the story members, in the other direction, kN
    Figure share;                ///< of the story members in the story shear, 1 for all of it
    Figure acrossShare;          ///< amount of the shear across over that along the direction
    Figure shearCoefficient;     ///< story shear over the weight above
    Figure floorForce;           ///< story shear less that of the story above, kN
    Figure verticalForce;        ///< of all members that the cutting plane meets, kN
    Figure deadShear;            ///< the same members' shear under the dead load case, kN
    Figure floorResidual;        ///< how far nodes of the upper floor are from moving as one piece,
                                 ///< the largest amount in this direction, mm

    Figure meanDrift;  ///< mm
    Figure meanAngle;
    Figure meanUprightDrift;  ///< of the upright members, of all where none is upright, mm
    Figure maxOverMean;       ///< drift of the worst upright member over that mean
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
    Figure ratioUtilisation;  ///< limit over ratio; none for a ratio that is not positive

    Figure stiffness;      ///< kN/mm
    Figure eccentricity;   ///< amount, across the direction, mm
    Figure elasticRadius;  ///< mm
    Figure eccentricityModulus;
    CodeVerdict eccentricityCode = CodeVerdict::kUndetermined;
    std::optional<WhyUndetermined> eccentricityWhy;
    std::optional<ToolVerdict> eccentricityTool;
    Figure modulusUtilisation;  ///< modulus over limit
    Figure toLimit;  ///< how much farther the centres may lie apart across the direction, mm;
                     ///< negative: how much closer they must come
    Figure stiffnessMoment;  ///< of the stiffness about the other axis: K_X v, K_2 x, kN
    Figure torsionalPart;    ///< this direction's part of the torsional stiffness, kN mm

    std::optional<ShapeFactors> shapeFactors;  ///< where ratio or modulus is beyond its limit
    ResultsNumbers results;
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
    std::array<Figure, 2> drift;         ///< under that direction's case; of a member that is not
                                         ///< counted, the difference of its own two nodes
    std::array<Figure, 2> stiffness;     ///< of story members only
    std::array<Figure, 2> angle;         ///< drift over its own height; only of what is not counted
    std::array<Figure, 2> weightMoment;  ///< N x and N v, kN mm
    std::array<Figure, 2> stiffnessMoment;  ///< K_X v and K_2 x, kN
    std::array<Figure, 2> torsionalPart;    ///< K_X (v - v_R)^2 and K_2 (x - x_R)^2, kN mm
};

struct StoryFindings {
    int number = 0;  ///< from 1, lowest first
    double lowerLevel = 0.0;
    double upperLevel = 0.0;
    double height = 0.0;

    std::vector<MemberFindings> members;        ///< the story members, in the records' order
    std::vector<MemberFindings> cutNotCounted;  ///< cut, and no story member; in the host's order

    Figure weightAbove;                    ///< kN
    Figure floorWeight;                    ///< less that above the next story, kN
    std::array<Figure, 2> weightMoment;    ///< of the weight above: N x and N v, kN mm
    std::array<Figure, 2> gravityCenter;   ///< plan coordinates
    std::array<Figure, 2> rigidityCenter;  ///< plan coordinates
    Figure torsionalStiffness;

    std::optional<PerDirection> gravityCenterOfResults;   ///< as their rows have it
    std::optional<PerDirection> rigidityCenterOfResults;  ///< as their rows have it

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

/// How large the building is, from the axes of its members.
struct BuildingExtent {
    Figure height;                ///< lowest to highest floor level, mm
    std::array<Figure, 2> width;  ///< of the story members' nodes in plan, mm
    Figure slenderness;           ///< height over the smaller width
};

/// The roles of load cases, and which cases the model has.
struct LoadCaseFindings {
    bool inputRead = false;  ///< the run came as far as to read the roles from the input file
    std::int32_t dead = 1;
    EarthquakeCases earthquake{1, 1};
    std::vector<std::int32_t> primary;       ///< in the host's order
    std::vector<std::int32_t> combinations;  ///< in the host's order
    bool modelAsked = false;                 ///< the run came as far as to ask the host for them
};

/// A row of the results file as the figures have it.
struct NamedRow {
    int story = 0;
    std::string name;  ///< "Story deformation angle, Direction X, Average, story 1, load 2"
};

/// How a run ended.
struct RunEnd {
    bool complete = false;  ///< the run reached "Calculation Complete"
    std::string failure;    ///< why it did not; a sentence without a stop
    bool resultsWritten = false;
    std::vector<std::string> incompleteReports;  ///< paths of reports not written to their end
    std::vector<NamedRow> missingRows;           ///< that the results file does not hold

    std::string missingAnswer;  ///< what the recording does not answer, where that ended the run
    std::string recordedFor;    ///< the input file that the recording was made for
    std::size_t unlistedZeros =
        0;  ///< answers of 0 to what a file that is no recording does not list
};

struct OverallVerdict {
    CodeVerdict code = CodeVerdict::kUndetermined;
    std::optional<ToolVerdict> tool;  ///< none when the run ended early
};

struct Findings {
    bool axisKnown = false;  ///< the run came as far as to ask the host which axis is vertical
    bool zIsVertical = false;
    bool inchUnits = false;
    std::vector<ModelNode> nodes;      ///< in the host's order
    std::vector<ModelMember> members;  ///< in the host's order
    LoadCaseFindings loadCases;
    bool floorLevelsFromInput = false;
    bool storyMembersFromInput = false;

    std::vector<double> floorLevels;     ///< mm, ascending
    std::vector<StoryFindings> stories;  ///< lowest first
    BuildingExtent extent;
    std::vector<Warning> warnings;    ///< of the log, in its order
    int failedExtraQuestions = 0;     ///< asked for the figures after the run
    std::string firstFailedQuestion;  ///< what the host said of it
    std::vector<Remark> remarks;      ///< errors first, then warnings, then notes
    RunEnd end;
    OverallVerdict verdict;

    std::optional<double> groundLevel;  ///< of the input file's sheet lines, mm

    /// Name of the second plan direction: the global axis that is neither X nor vertical; 2 where a
    /// run ended before it knew.
    char SecondDirection() const {
        if (!axisKnown) return '2';
        return zIsVertical ? 'Y' : 'Z';
    }
};

/// How many of a story's members lean.
int CountLeaning(const StoryFindings& story);
