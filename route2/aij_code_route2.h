#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "host/host_queries.h"
#include "log/warnings.h"
#include "platform/report_file.h"
#include "route2/gravity_center.h"
#include "route2/member_ends.h"
#include "route2/node_table.h"
#include "route2/number_index.h"
#include "route2/records.h"
#include "route2/tool_verdict.h"

class AijCodeRoute2;

/// Writes the rows of an open results file from the engine's records, and counts the verdicts that
/// it prints. An index beyond a vector's end stops it at that row with std::out_of_range.
using ResultRowsWriter = PrintedVerdicts (*)(std::FILE* file, const AijCodeRoute2& engine);

/// The engine of one Route 2 check run.
///
/// Holds what a run reads from the host and from the Route 2 Input file, and the results of the
/// checks. A run constructs one engine, calls its steps in the order in which they stand below
/// and throws it away. Lengths are in mm, forces in kN, stiffness in kN/mm.
///
/// Steps do not throw for what an engineer can get wrong: they warn, in `warnings` and in the log,
/// and return, or go on with the fallback that the warning names. A failed host call
/// (HostCallError) and an index beyond a vector's end (std::out_of_range, "invalid vector
/// subscript") leave the step and end the run.
class AijCodeRoute2 {
public:
    /// Borrows `host`, which must outlive the engine, and asks it for its base unit system.
    AijCodeRoute2(HostQueries* host, ResultRowsWriter resultRowsWriter);

    /// Releases memory only: closing the log is the run's business.
    ~AijCodeRoute2() = default;
    AijCodeRoute2(const AijCodeRoute2&) = delete;
    AijCodeRoute2& operator=(const AijCodeRoute2&) = delete;

    /// Names the reports after the model (its path less the last three characters), opens the
    /// log, asks for the vertical axis and reads the load case numbers of the input file.
    /// False when the log cannot be opened or the input file cannot be read.
    bool Initialize(std::string modelPath, std::string dataPath, std::string& logPathOut,
                    std::string& resultPathOut);

    // Setup, from the host.

    /// Leaves loadCaseNumbers. Asks for two counts and two lists.
    void SetLoadInfo();

    /// Leaves nodes in mm, their supports and baseLevel.
    void SetNodeInfo();

    /// Reads the nodes; leaves members and their axes. Refuses, false, at a member whose node is
    /// missing or which has no length: memberNumbers then holds every member, the axes those before
    /// it.
    bool SetMemberInfo();

    // Floors and stories.

    /// Reads the input file, else baseLevel and the members' heights; leaves floorLevels.
    void SetFloorInfo();

    /// Reads floorLevels, then the input file, else the members' heights; leaves stories with their
    /// members, allowable values and output flags.
    void SetStoryInfo();

    // Checks. Each refuses while storyInfoSet is false.

    /// Asks for the displacements of every record's two nodes; leaves relativeDisp of the records,
    /// and largest and mean values of the stories.
    bool SetRelativeStoryDisp();

    /// Reads the stories' displacements; leaves the four rsBar... fields.
    bool SetRsBar();

    /// Asks for the dead load forces of every member that a story's cutting plane meets; leaves
    /// weightAbove and gravityCenter. Refuses while nodeInfoSet is false, and stops at a member
    /// whose node is missing: stories before it keep their results.
    void SetGravityCenter();

    /// Asks for the earthquake forces at every record's lower end; leaves shearForce.
    void SetStoryMemberShearForce();

    /// Reads relativeDisp and shearForce; leaves horizontalStiffness.
    bool SetStoryMemberHorizontalStiffness();

    /// Reads horizontalStiffness; leaves rigidityCenter.
    bool SetRigidityCenter();

    /// Reads horizontalStiffness and both centres; leaves eccentricityModulus.
    bool SetEccentricityModulus();

    // Report.

    /// Opens, fills and closes the results file. Warns when it cannot be opened, and then writes
    /// nothing.
    void PrintStoryInfoCsv();
    bool CloseResultFile();  ///< true when a results file was open and closed without error

    // The readers of the input file. Each opens dataFilePath on its own, reads it up to the line
    // that begins with FIN, and looks at its own keywords only. False: the file cannot be opened,
    // has no FIN line within the limit, or holds what the reader refuses with a warning.
    bool SetLoadCaseNumbersWithDataFile();
    bool SetFloorInfoWithDataFile();
    bool SetStoryInfoWithDataFile();
    bool SetMemberDeformAngleOutputFlag();
    bool SetStoryAllowableValues();

    // Parts of the floor and story steps.

    /// True, with its level in mm, when the member's ends are less than 0.1 mm apart in height.
    bool GetFloorLevelOfMember(std::int32_t member, double& level);
    bool SetStoryMember();  ///< false, storyInfoSet unset, when a member's node is missing
    bool SetStoryMemberBaseVector();
    std::int32_t SetLowerNodeNumber(std::int32_t member);  ///< the end node when both are level
    std::int32_t SetUpperNodeNumber(std::int32_t member);  ///< the end node when both are level
    double SetMemberHeight(std::int32_t member);           ///< mm, never negative

    /// Writes a warning to the log and keeps it. `story` counts from 1; 0 is no story.
    void Warn(WarningKind kind, std::size_t story = 0, const std::string& path = {});

    /// The nodes, for whoever looks members up among them; good while the engine lives.
    NodeTable Nodes() const { return {nodeCoords, nodePositions_, zIsVertical}; }

    double MillimetresPerHostLength() const;

    // Written by the run before Initialize: the path that the reports are named after instead of
    // the model's; empty: the model's.
    std::string reportsNamedAfter;

    // Written by Initialize; logFile is closed by the run.
    std::FILE* logFile = nullptr;
    ReportOpening logOpening = ReportOpening::kNotTried;

    // Written by PrintStoryInfoCsv. An exception that ends the writing leaves the stream open and
    // the file complete up to the row that failed.
    std::FILE* resultFile = nullptr;
    ReportOpening resultOpening = ReportOpening::kNotTried;
    bool resultFileWritten = false;  ///< all rows went to the results file, none was lost
    PrintedVerdicts printedVerdicts;

    // Written by Initialize.
    std::string modelFilePath;
    bool axisAsked = false;    ///< the host has said which axis is vertical
    bool zIsVertical = false;  ///< the vertical axis is Z; otherwise Y

    // Written by the constructor.
    bool inchUnits = false;  ///< the host answers in inch and kip; otherwise metre and kN

    // Written by SetLoadInfo.
    std::int32_t numPrimaryLoadCases = 0;
    std::int32_t numLoadCombinations = 0;

    // Allowable values of every new story; nobody changes them.
    double allowStoryDeformAngle = 0.005;  // 1/200
    double allowStoryStiffRatio = 0.6;
    double allowStoryEccentricityModulus = 0.15;

    // Written by Initialize, from the input file.
    bool loadCaseNumbersRead = false;  ///< the input file was there to be read
    std::int32_t deadLoadCaseNumber = 1;
    EarthquakeCases earthquakeLoadCaseNumber{1, 1};

    // Status.
    bool loadInfoSet = false;  ///< by SetLoadInfo; no step asks, the findings do
    bool nodeInfoSet = false;  ///< by SetNodeInfo

    // Written by SetNodeInfo, in the host's order.
    std::vector<std::int32_t> nodeNumbers;
    std::vector<Vec3> nodeCoords;  ///< mm
    std::vector<bool> nodeSupported;
    double baseLevel = 0.0;  ///< mm

    // Written by SetMemberInfo, in the host's order.
    std::vector<std::int32_t> memberNumbers;
    std::vector<std::array<std::int32_t, 2>> memberEndNodes;  ///< start and end, as the host has it
    std::vector<Vec3> memberAxisX;                            ///< unit vector from start to end
    std::vector<Vec3> memberAxisY;
    std::vector<Vec3> memberAxisZ;

    // Written by SetFloorInfo.
    bool floorLevelsSet = false;
    bool floorLevelsFromFile = false;
    std::vector<double> floorLevels;  ///< mm; ascending and distinct after SetFloorInfo

    // Written by SetStoryInfo, lowest story first; the checks fill in their results.
    bool storyInfoSet = false;
    bool storyMembersFromFile = false;
    std::vector<StoryInfo> stories;

    // Written by SetLoadInfo: all primary load cases, then all combinations. Every per-load-case
    // vector has this order.
    std::vector<std::int32_t> loadCaseNumbers;

    // Written by SetRsBar: means over the stories of story height / relative story displacement.
    PerDirectionByLoadCase rsBarOfMaxDispByLoadCase;
    PerDirection rsBarOfMaxDisp{};
    PerDirectionByLoadCase rsBarOfMeanDispByLoadCase;
    PerDirection rsBarOfMeanDisp{};

    // Written by the checks, each when it has reached its end: what the findings may rest on.
    bool relativeDispSet = false;
    bool rsBarSet = false;
    bool shearForceSet = false;
    bool stiffnessSet = false;
    bool rigidityCenterSet = false;
    bool eccentricityModulusSet = false;

    // Written by every step: what stands in the log as warnings, in its order.
    std::vector<Warning> warnings;

    HostQueries* hostLink;
    ResultRowsWriter writeResultRows;

    // Written by Initialize.
    std::string logFilePath;
    std::string dataFilePath;
    std::string resultFilePath;

private:
    /// The heights of a member's ends. A missing node warns and throws std::out_of_range.
    EndHeights AskEndHeights(std::int32_t member, WarningKind whenMissing);

    /// Whether storyInfoSet is; warns when it is not.
    bool RequireStoryInfo(WarningKind whenMissing);

    void ReadNodeNumbers();
    Vec3 AskNodeCoordinates(std::int32_t node);  ///< mm
    void LowerBaseLevel();                       ///< by the node read last
    void ReadMemberNumbers();

    void DeriveFloorLevels();
    void LogFloorLevels();
    void CreateStories();
    bool AddStoryMemberFromDataFile(StoryInfo& story, std::int32_t member);

    /// One record per member that runs between the story's floors, no load case set. False when a
    /// node is missing; `found` then holds the members before.
    bool FindStoryMembers(const StoryInfo& story, std::vector<StoryMember>& found);

    void SetRsBarOfAllLoadCases();
    void SetRsBarByLoadCase();

    bool SumWeights(const StoryInfo& story, WeightSums& sums);  ///< false when a node is missing
    double WeightAtLowerEnd(std::size_t memberPosition, std::int32_t end);  ///< kN

    void SetEccentricityModulusOf(StoryInfo& story, std::size_t storyNumber);

    NumberIndex nodePositions_;  ///< of nodeNumbers
};
