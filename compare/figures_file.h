#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "route2/code_verdict.h"
#include "route2/tool_verdict.h"

// The figures of a run as they stand in a JSON file (docs/figures-json.md), as far as two runs are
// compared by them. Units as there: mm, kN. Pairs: X, then the second plan direction.

using FigureRead = std::optional<double>;  ///< none where the file says null

struct DirectionRead {
    std::optional<std::int32_t> worstMember;
    FigureRead worstDrift;  ///< signed
    FigureRead angle;       ///< amount, of the worst upright member
    double angleLimit = 0.0;
    CodeVerdict angleCode = CodeVerdict::kUndetermined;
    FigureRead meanAngle;                  ///< what the tool judges beside its Max
    std::optional<ToolVerdict> angleTool;  ///< of the mean; none (as below) of what was not formed
    FigureRead ratio;
    CodeVerdict ratioCode = CodeVerdict::kUndetermined;
    std::optional<ToolVerdict> ratioTool;
    FigureRead modulus;
    CodeVerdict modulusCode = CodeVerdict::kUndetermined;
    std::optional<ToolVerdict> modulusTool;
    FigureRead shear;  ///< of the story
};

struct MemberRead {
    std::int32_t number = 0;
    double x = 0.0;
    double v = 0.0;
};

struct StoryRead {
    int number = 0;
    double lowerLevel = 0.0;
    double upperLevel = 0.0;
    double height = 0.0;
    int storyMembers = 0;
    FigureRead weight;
    std::array<FigureRead, 2> gravityCenter;
    std::array<FigureRead, 2> rigidityCenter;
    double allowableAngle = 0.0;
    double allowableRatio = 0.0;
    double allowableModulus = 0.0;
    std::array<DirectionRead, 2> directions;
    std::vector<MemberRead> members;
};

struct RemarkRead {
    std::string id;
    std::string kind;
    std::vector<int> stories;
    std::string en;
    std::string ja;
};

struct RunRead {
    std::string path;  ///< of the JSON file
    std::string made;
    std::string modelPath;
    std::string modelSha256;   ///< empty: not known
    std::string verticalAxis;  ///< "Y" or "Z"; empty: the run ended before it knew
    std::string hostUnits;
    double nodes = 0;
    double members = 0;
    std::string inputPath;
    std::string inputSha256;  ///< empty: not known
    bool complete = false;
    std::string failure;
    std::array<std::optional<std::int32_t>, 3> loadCases;  ///< dead, X, second; none: not read
    std::string secondDirection;  ///< "Y" or "Z"; empty: the run ended before it knew
    CodeVerdict code = CodeVerdict::kUndetermined;
    std::optional<ToolVerdict> tool;
    std::vector<StoryRead> stories;  ///< lowest first
    std::vector<RemarkRead> remarks;
};

/// A file that holds no figures of a run. The text is one line that names the file and the place in
/// it.
class FiguresFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads a file that `--json` wrote. Keys that it does not know are passed over; those that it
/// needs must be there. Throws FiguresFileError.
RunRead ReadFiguresFile(const std::string& path);
