#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "host/host_queries.h"
#include "route2/number_index.h"
#include "route2/records.h"

/// The engine of one Route 2 check run.
///
/// Holds what a run reads from the host and from the Route 2 Input file, and the results of the
/// checks. A run constructs one engine, calls its steps in the order in which they stand below
/// and throws it away. Lengths are in mm, forces in kN, stiffness in kN/mm.
///
/// Steps do not throw for what an engineer can get wrong: they write a warning to the log and
/// return, or go on with the fallback that the warning names. A failed host call
/// (HostCallError) and an index beyond a vector's end (std::out_of_range, "invalid vector
/// subscript") leave the step and end the run.
class AijCodeRoute2 {
public:
    /// Borrows `host`, which must outlive the engine, and asks it for its base unit system.
    explicit AijCodeRoute2(HostQueries* host);

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
    void SetLoadInfo();
    void SetNodeInfo();
    bool SetMemberInfo();  ///< false when a member stopped it; the axis vectors end there

    // Floors and stories, from the input file or else from the host's members.
    void SetFloorInfo();
    void SetStoryInfo();

    // Checks.
    bool SetRelativeStoryDisp();
    bool SetRsBar();
    void SetGravityCenter();
    void SetStoryMemberShearForce();
    bool SetStoryMemberHorizontalStiffness();
    bool SetRigidityCenter();
    bool SetEccentricityModulus();

    // Report.
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
    bool SetStoryMember();
    bool SetStoryMemberBaseVector();
    std::int32_t SetLowerNodeNumber(std::int32_t member);  ///< the end node when both are level
    std::int32_t SetUpperNodeNumber(std::int32_t member);  ///< the end node when both are level
    double SetMemberHeight(std::int32_t member);           ///< mm, never negative

    // Files. The results stream is opened and closed by PrintStoryInfoCsv alone. An exception that
    // ends the writing leaves the file complete up to the row that failed.
    std::FILE* logFile = nullptr;
    std::FILE* resultFile = nullptr;
    bool resultFileWritten = false;  ///< all rows went to the results file, none was lost
    std::string modelFilePath;

    // Axes and units.
    bool zIsVertical = false;  ///< the vertical axis is Z; otherwise Y
    bool inchUnits = false;    ///< the host answers in inch and kip; otherwise metre and kN

    // Load info.
    std::int32_t numPrimaryLoadCases = 0;
    std::int32_t numLoadCombinations = 0;

    // Allowable values of every new story.
    double allowStoryDeformAngle = 0.005;  // 1/200
    double allowStoryStiffRatio = 0.6;
    double allowStoryEccentricityModulus = 0.15;

    // Load info.
    std::int32_t deadLoadCaseNumber = 1;
    std::array<std::int32_t, 2> earthquakeLoadCaseNumber{1, 1};  ///< [kX], [kZ]

    // Status.
    bool loadInfoSet = false;
    bool nodeInfoSet = false;

    // Node info, in the host's order.
    std::vector<std::int32_t> nodeNumbers;
    std::vector<Vec3> nodeCoords;  ///< mm
    double baseLevel = 0.0;        ///< mm

    // Member info, in the host's order.
    std::vector<std::int32_t> memberNumbers;
    std::vector<Vec3> memberAxisX;  ///< unit vector from start to end node
    std::vector<Vec3> memberAxisY;
    std::vector<Vec3> memberAxisZ;

    // Floor info.
    bool floorLevelsSet = false;
    std::vector<double> floorLevels;  ///< mm; ascending and distinct after SetFloorInfo

    // Story info, lowest story first.
    bool storyInfoSet = false;
    std::vector<StoryInfo> stories;

    /// All primary load cases, then all combinations. Every per-load-case vector has this order.
    std::vector<std::int32_t> loadCaseNumbers;

    // Means over the stories of story height / relative story displacement.
    PerDirectionByLoadCase rsBarOfMaxDispByLoadCase;
    PerDirection rsBarOfMaxDisp{};
    PerDirectionByLoadCase rsBarOfMeanDispByLoadCase;
    PerDirection rsBarOfMeanDisp{};

    HostQueries* hostLink;

    std::string logFilePath;
    std::string dataFilePath;
    std::string resultFilePath;

private:
    /// Where a member's two end nodes stand in nodeNumbers. A node that is not there has no
    /// value.
    struct MemberEnds {
        std::int32_t startNode = 0;
        std::int32_t endNode = 0;
        std::optional<std::size_t> start;
        std::optional<std::size_t> end;
        bool BothFound() const { return start && end; }
    };

    MemberEnds AskMemberEnds(std::int32_t member);

    /// The ends' heights, mm. A missing node warns in the log, "... as setting" + `purpose`, and
    /// throws std::out_of_range.
    struct EndHeights {
        std::int32_t startNode;
        std::int32_t endNode;
        double start;
        double end;
    };
    EndHeights AskEndHeights(std::int32_t member, const char* purpose);

    double Vertical(const Vec3& point) const { return zIsVertical ? point.z : point.y; }
    double PlanZ(const Vec3& point) const { return zIsVertical ? point.y : point.z; }
    double MillimetresPerHostLength() const { return inchUnits ? 25.4 : 1000.0; }

    /// Warns "Story info. has not set yet. Stops setting `subject`..." unless it has been.
    bool RequireStoryInfo(const char* subject);

    void DeriveFloorLevels();
    void LogFloorLevels();
    void CreateStories();
    bool AddStoryMemberFromDataFile(StoryInfo& story, std::int32_t member);

    /// One record per member that runs between the story's floors, no load case set. False when a
    /// node is missing; `found` then holds the members before.
    bool FindStoryMembers(const StoryInfo& story, std::vector<StoryMember>& found);

    void SetRsBarOfAllLoadCases();
    void SetRsBarByLoadCase();

    /// Vertical forces of the members that a story's cutting plane meets, kN and kN mm.
    struct WeightSums {
        double weight = 0.0;
        double weightTimesX = 0.0;
        double weightTimesZ = 0.0;
    };
    bool SumWeights(const StoryInfo& story, WeightSums& sums);  ///< false when a node is missing
    double WeightAtLowerEnd(std::size_t memberPosition, std::int32_t end);

    void SetEccentricityModulusOf(StoryInfo& story, std::size_t storyNumber);

    NumberIndex nodePositions_;  ///< of nodeNumbers
};
