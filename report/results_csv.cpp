// The results file: six sections, one table per check. Angles, ratios and verdicts come from the
// checks' own files; everything else is printed as the checks stored it.

#include "report/results_csv.h"

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include "log/formatted_print.h"
#include "report/results_formats.h"
#include "route2/eccentricity_modulus.h"
#include "route2/stiffness_ratio.h"
#include "route2/story_drift.h"
#include "route2/tested_access.h"

namespace {

int StoryNumber(std::size_t index) {
    return static_cast<int>(index + 1);
}

// One block of the tables of story deformation angles and of story stiffness ratios. The flags
// name what a block does differently.
struct Block {
    const char* direction = nullptr;
    const char* dispType = nullptr;
    std::size_t axis = kX;
    PerDirectionByLoadCase StoryInfo::*dispByLoadCase = nullptr;
    PerDirection StoryInfo::*dispOfAll = nullptr;
    PerDirectionByLoadCase AijCodeRoute2::*rsBarByLoadCase = nullptr;
    PerDirection AijCodeRoute2::*rsBarOfAll = nullptr;
    bool repeatsLastAngleVerdict = false;
    bool allRowDividesByAnyHeight = false;
};

// In file order. Both flags are intended: the Max X angles judge nothing, their rows repeat the
// verdict of the last Average X row; and the "All" rows of Z(or Y) divide even by a story height
// of 0, which shows as inf or nan.
constexpr Block kBlocks[] = {
    {.direction = "X",
     .dispType = "Average",
     .axis = kX,
     .dispByLoadCase = &StoryInfo::meanRelativeDispByLoadCase,
     .dispOfAll = &StoryInfo::meanRelativeDisp,
     .rsBarByLoadCase = &AijCodeRoute2::rsBarOfMeanDispByLoadCase,
     .rsBarOfAll = &AijCodeRoute2::rsBarOfMeanDisp},
    {.direction = "X",
     .dispType = "Max",
     .axis = kX,
     .dispByLoadCase = &StoryInfo::maxRelativeDispByLoadCase,
     .dispOfAll = &StoryInfo::maxRelativeDisp,
     .rsBarByLoadCase = &AijCodeRoute2::rsBarOfMaxDispByLoadCase,
     .rsBarOfAll = &AijCodeRoute2::rsBarOfMaxDisp,
     .repeatsLastAngleVerdict = true},
    {.direction = "Z(or Y)",
     .dispType = "Average",
     .axis = kZ,
     .dispByLoadCase = &StoryInfo::meanRelativeDispByLoadCase,
     .dispOfAll = &StoryInfo::meanRelativeDisp,
     .rsBarByLoadCase = &AijCodeRoute2::rsBarOfMeanDispByLoadCase,
     .rsBarOfAll = &AijCodeRoute2::rsBarOfMeanDisp,
     .allRowDividesByAnyHeight = true},
    {.direction = "Z(or Y)",
     .dispType = "Max",
     .axis = kZ,
     .dispByLoadCase = &StoryInfo::maxRelativeDispByLoadCase,
     .dispOfAll = &StoryInfo::maxRelativeDisp,
     .rsBarByLoadCase = &AijCodeRoute2::rsBarOfMaxDispByLoadCase,
     .rsBarOfAll = &AijCodeRoute2::rsBarOfMaxDisp,
     .allRowDividesByAnyHeight = true},
};

double AngleOfAllRow(const Block& block, double relativeDisp, double storyHeight) {
    return block.allRowDividesByAnyHeight ? DeformAngleOfAnyHeight(relativeDisp, storyHeight)
                                          : DeformAngle(relativeDisp, storyHeight);
}

// Writes the six sections of one engine's results to its results stream.
class ResultsWriter {
public:
    ResultsWriter(std::FILE* file, const AijCodeRoute2& engine)
        : engine_(engine),
          file_(file),
          loadCases_(static_cast<std::size_t>(engine.numPrimaryLoadCases) +
                     static_cast<std::size_t>(engine.numLoadCombinations)) {}

    /// An index beyond a vector's end stops it at that row with std::out_of_range.
    void PrintSections();

    const PrintedVerdicts& Printed() const { return printed_; }

private:
    void PrintDeformAngles();
    void PrintMemberDeformAngles();
    void PrintStiffnessRatios();
    void PrintCenters(const char* title, const char* nameOfCenter,
                      PerDirection StoryInfo::*center) const;
    void PrintEccentricityModuli();

    // The records of one story whose own angle is reported: a list per load case number, each in
    // the records' order.
    using ReportedRecords = std::unordered_map<std::int32_t, std::vector<const StoryMember*>>;

    void PrintBlockHead(const Block& block, const char* value) const;
    void PrintLoadCaseRow(std::size_t story, std::size_t loadCase, double disp, double value,
                          double allowable);
    void PrintAllRow(std::size_t story, double disp, double value, double allowable);
    void PrintStoryDeformAngles(const Block& block, std::size_t story);
    void PrintStoryStiffnessRatios(const Block& block, std::size_t story);
    void PrintStoryMemberAngles(std::size_t story, const ReportedRecords& records,
                                std::size_t axis);

    /// Text of a verdict as it is printed now, which counts it.
    const char* Shown(std::optional<ToolVerdict> verdict);

    std::int32_t LoadCaseNumber(std::size_t loadCase) const {
        return At(engine_.loadCaseNumbers, loadCase);
    }

    const AijCodeRoute2& engine_;
    std::FILE* file_;
    std::size_t loadCases_;
    std::optional<ToolVerdict> verdict_;  // of the check row written last; some rows repeat it
    PrintedVerdicts printed_;
};

void ResultsWriter::PrintSections() {
    PrintDeformAngles();
    PrintMemberDeformAngles();
    PrintStiffnessRatios();
    PrintCenters("Gravity center", "gravity center", &StoryInfo::gravityCenter);
    PrintCenters("Center of rigidity", "rigidity center", &StoryInfo::rigidityCenter);
    PrintEccentricityModuli();
}

const char* ResultsWriter::Shown(std::optional<ToolVerdict> verdict) {
    if (!verdict) return "***";
    ++(*verdict == ToolVerdict::kPass ? printed_.pass : printed_.fail);
    return TextOf(*verdict);
}

void ResultsWriter::PrintBlockHead(const Block& block, const char* value) const {
    Print(file_, "\nDirection %s\n", block.direction);
    Print(file_, "Disp type : %s\n", block.dispType);
    Print(file_,
          "Story,Load,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),"
          "Relative story disp.(mm),Story %s,Allowable story %s,Result\n",
          value, value);
}

void ResultsWriter::PrintLoadCaseRow(std::size_t story, std::size_t loadCase, double disp,
                                     double value, double allowable) {
    const StoryInfo& info = engine_.stories[story];
    Print(file_, kLoadCaseRowFormat, StoryNumber(story), static_cast<int>(LoadCaseNumber(loadCase)),
          info.lowerLevel, info.upperLevel, StoryHeight(info), disp, value, allowable,
          Shown(verdict_));
}

void ResultsWriter::PrintAllRow(std::size_t story, double disp, double value, double allowable) {
    const StoryInfo& info = engine_.stories[story];
    Print(file_, kAllRowFormat, StoryNumber(story), info.lowerLevel, info.upperLevel,
          StoryHeight(info), disp, value, allowable, Shown(verdict_));
}

void ResultsWriter::PrintDeformAngles() {
    Print(file_, "\n -----  Story deformation angle  ----- \n");
    for (const Block& block : kBlocks) {
        PrintBlockHead(block, "deform angle");
        for (std::size_t story = 0; story < engine_.stories.size(); ++story)
            PrintStoryDeformAngles(block, story);
    }
}

void ResultsWriter::PrintStoryDeformAngles(const Block& block, std::size_t story) {
    const StoryInfo& info = engine_.stories[story];
    if (info.members.empty()) return;
    const double height = StoryHeight(info);
    const double allowable = info.allowDeformAngle;
    const auto judge = [&](double angle) {
        if (!block.repeatsLastAngleVerdict) verdict_ = JudgeDeformAngle(angle, allowable);
    };
    for (std::size_t k = 0; k < loadCases_; ++k) {
        const double disp = At((info.*block.dispByLoadCase)[block.axis], k);
        const double angle = DeformAngle(disp, height);
        judge(angle);
        PrintLoadCaseRow(story, k, disp, angle, allowable);
    }
    const double disp = (info.*block.dispOfAll)[block.axis];
    const double angle = AngleOfAllRow(block, disp, height);
    judge(angle);
    PrintAllRow(story, disp, angle, allowable);
}

void ResultsWriter::PrintMemberDeformAngles() {
    Print(file_, "\n -----  Story deformation angle of specified member ----- \n");
    Print(file_,
          "Story,Load,Member,Story height(mm),Direction,Story deform angle,"
          "Allowable story deform angle,Result\n");
    for (std::size_t story = 0; story < engine_.stories.size(); ++story) {
        ReportedRecords records;
        for (const StoryMember& record : engine_.stories[story].members)
            if (record.outputDeformAngle) records[record.loadCaseNumber].push_back(&record);
        PrintStoryMemberAngles(story, records, kX);
        PrintStoryMemberAngles(story, records, kZ);
    }
}

void ResultsWriter::PrintStoryMemberAngles(std::size_t story, const ReportedRecords& records,
                                           std::size_t axis) {
    const StoryInfo& info = engine_.stories[story];
    // The blank in "Z( or Y)" stands here only.
    const char* const direction = axis == kX ? "X" : "Z( or Y)";
    const double height = StoryHeight(info);
    for (std::size_t k = 0; k < loadCases_; ++k) {
        const auto ofLoadCase = records.find(LoadCaseNumber(k));
        if (ofLoadCase == records.end()) continue;
        for (const StoryMember* record : ofLoadCase->second) {
            const double angle = MemberDeformAngle(record->relativeDisp[axis], height);
            verdict_ = JudgeDeformAngle(angle, info.allowDeformAngle);
            // The load column counts the load cases from 1; the other sections print numbers.
            Print(file_, "%d,%d,%d,%.3e,%s,%.5e,%.5e,%s\n", StoryNumber(story),
                  static_cast<int>(k + 1), static_cast<int>(record->memberNumber), height,
                  direction, angle, info.allowDeformAngle, Shown(verdict_));
        }
    }
}

void ResultsWriter::PrintStiffnessRatios() {
    Print(file_, "\n -----  Story stiffness ratio  ----- \n");
    for (const Block& block : kBlocks) {
        PrintBlockHead(block, "stiffness ratio");
        for (std::size_t story = 0; story < engine_.stories.size(); ++story)
            PrintStoryStiffnessRatios(block, story);
    }
}

void ResultsWriter::PrintStoryStiffnessRatios(const Block& block, std::size_t story) {
    const StoryInfo& info = engine_.stories[story];
    if (info.members.empty()) return;
    const double height = StoryHeight(info);
    const double allowable = info.allowStiffRatio;
    for (std::size_t k = 0; k < loadCases_; ++k) {
        const double disp = At((info.*block.dispByLoadCase)[block.axis], k);
        const double rsBar = At((engine_.*block.rsBarByLoadCase)[block.axis], k);
        const double ratio = StiffnessRatio(block.axis, DeformAngle(disp, height), rsBar);
        verdict_ = JudgeStiffnessRatio(ratio, allowable);
        PrintLoadCaseRow(story, k, disp, ratio, allowable);
    }
    const double disp = (info.*block.dispOfAll)[block.axis];
    const double rsBar = (engine_.*block.rsBarOfAll)[block.axis];
    const double ratio = StiffnessRatio(block.axis, AngleOfAllRow(block, disp, height), rsBar);
    verdict_ = JudgeStiffnessRatio(ratio, allowable);
    PrintAllRow(story, disp, ratio, allowable);
}

void ResultsWriter::PrintCenters(const char* title, const char* nameOfCenter,
                                 PerDirection StoryInfo::*center) const {
    Print(file_, "\n -----  %s  ----- \n", title);
    Print(file_,
          "Story,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),X coord of %s,"
          "Z(or Y) coord of %s\n",
          nameOfCenter, nameOfCenter);
    for (std::size_t story = 0; story < engine_.stories.size(); ++story) {
        const StoryInfo& info = engine_.stories[story];
        Print(file_, kCenterRowFormat, StoryNumber(story), info.lowerLevel, info.upperLevel,
              StoryHeight(info), (info.*center)[kX], (info.*center)[kZ]);
    }
}

void ResultsWriter::PrintEccentricityModuli() {
    Print(file_, "\n -----  Eccentricity modulus  ----- \n");
    Print(file_,
          "Story,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),Eccentricity Mod(X),"
          "Eccentricity Mod(Z(or Y)),Allowable Eccenticity Mod,Result(X),Result(Z(or Y))\n");
    for (std::size_t story = 0; story < engine_.stories.size(); ++story) {
        const StoryInfo& info = engine_.stories[story];
        const double allowable = info.allowEccentricityModulus;
        const PerDirection& modulus = info.eccentricityModulus;
        Print(file_, kModulusRowFormat, StoryNumber(story), info.lowerLevel, info.upperLevel,
              StoryHeight(info), modulus[kX], modulus[kZ], allowable,
              Shown(JudgeEccentricityModulus(modulus[kX], allowable)),
              Shown(JudgeEccentricityModulus(modulus[kZ], allowable)));
    }
}

}  // namespace

PrintedVerdicts WriteResultRows(std::FILE* file, const AijCodeRoute2& engine) {
    ResultsWriter writer(file, engine);
    writer.PrintSections();
    return writer.Printed();
}
