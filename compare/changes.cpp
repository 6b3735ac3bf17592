#include "compare/changes.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "compare/figure_texts.h"
#include "report/number_text.h"

namespace {

constexpr double kLevelMoved = 0.5;   // mm
constexpr double kCenterMoved = 1.0;  // mm

class Comparer {
public:
    Comparer(const RunRead& a, const RunRead& b, double tolerance)
        : a_(a), b_(b), tolerance_(tolerance) {
        comparison_.stories = PairStories(a.stories, b.stories);
    }

    Comparison Compare() {
        CompareInputs();
        CompareModels();
        CompareChecks();
        CompareRemarks();
        return std::move(comparison_);
    }

private:
    void Add(ChangeSection section, std::string what, std::string before, std::string after) {
        const bool isChange = before != after;
        comparison_.changes.push_back(
            {section, std::move(what), std::move(before), std::move(after), "", isChange, false});
    }

    template <typename CompareStories>
    void ForEachPair(const CompareStories& compare) {
        for (const StoryPair& pair : comparison_.stories)
            if (pair.a && pair.b) compare(a_.stories[*pair.a], b_.stories[*pair.b]);
    }

    // "story 2", or "story 2 (3 in B)" where the numbers differ.
    static std::string StoryName(const StoryRead& a, const StoryRead& b) {
        std::string name = "story " + std::to_string(a.number);
        if (a.number != b.number) name += " (" + std::to_string(b.number) + " in B)";
        return name;
    }

    void AddFile(ChangeSection section, const std::string& what, const std::string& pathA,
                 const std::string& shaA, const std::string& pathB, const std::string& shaB) {
        Add(section, what, pathA, pathB);
        Change& change = comparison_.changes.back();
        if (shaA.empty() || shaB.empty()) return;
        change.isChange = shaA != shaB;
        change.note = shaA == shaB ? "the same bytes" : "other bytes";
    }

    void CompareInputs();
    void CompareAllowableValues(const StoryRead& a, const StoryRead& b);
    void CompareModels();
    void AddStoriesOfOneRun();
    void CompareChecks();
    void CompareDirection(const StoryRead& a, const StoryRead& b, std::size_t axis);
    void AddCheck(const std::string& what, const std::string& before, const std::string& after,
                  bool isSame, bool isVerdict);
    void CompareRemarks();
    std::string MovedCenters(const StoryRead& a, const StoryRead& b, std::size_t axis) const;

    const RunRead& a_;
    const RunRead& b_;
    double tolerance_;
    Comparison comparison_;
};

std::string TextOrNone(const std::optional<ToolVerdict>& verdict) {
    return verdict ? TextOf(*verdict) : "none";
}

// "0.535 NG", and the tool's verdict where it says something else than the code's.
std::string Judged(const std::string& figure, CodeVerdict code,
                   const std::optional<ToolVerdict>& tool) {
    std::string text = figure + " " + TextOf(code);
    const bool agree = tool && ((*tool == ToolVerdict::kPass && code == CodeVerdict::kOk) ||
                                (*tool == ToolVerdict::kFail && code == CodeVerdict::kNg));
    if (!agree && tool) text += std::string(" (tool ") + TextOf(*tool) + ")";
    return text;
}

constexpr const char* kNotKnown = "not known";  // of a run that ended before it asked

std::string CaseText(const std::optional<std::int32_t>& number) {
    return number ? std::to_string(*number) : kNotKnown;
}

std::string AxisText(const std::string& axis) {
    return axis.empty() ? kNotKnown : axis;
}

void Comparer::CompareInputs() {
    AddFile(ChangeSection::kInput, "input file", a_.inputPath, a_.inputSha256, b_.inputPath,
            b_.inputSha256);
    const std::string roles[] = {"dead load case", "earthquake load case, X",
                                 "earthquake load case, " + DirectionName(a_, b_, 1)};
    for (std::size_t i = 0; i < a_.loadCases.size(); ++i)
        Add(ChangeSection::kInput, roles[i], CaseText(a_.loadCases[i]), CaseText(b_.loadCases[i]));
    ForEachPair([this](const StoryRead& a, const StoryRead& b) { CompareAllowableValues(a, b); });
}

void Comparer::CompareAllowableValues(const StoryRead& a, const StoryRead& b) {
    const std::string name = StoryName(a, b);
    Add(ChangeSection::kInput, name + ": allowable angle",
        AllowableAngleText(a.allowableAngle, kTerminalNumbers),
        AllowableAngleText(b.allowableAngle, kTerminalNumbers));
    Add(ChangeSection::kInput, name + ": allowable ratio",
        InputValueText(a.allowableRatio, kTerminalNumbers),
        InputValueText(b.allowableRatio, kTerminalNumbers));
    Add(ChangeSection::kInput, name + ": allowable modulus",
        InputValueText(a.allowableModulus, kTerminalNumbers),
        InputValueText(b.allowableModulus, kTerminalNumbers));
}

std::string LevelsOf(const StoryRead& story) {
    return LevelText(story.lowerLevel, kTerminalNumbers) + " to " +
           LevelText(story.upperLevel, kTerminalNumbers) + " mm";
}

void Comparer::CompareModels() {
    AddFile(ChangeSection::kModel, "model", a_.modelPath, a_.modelSha256, b_.modelPath,
            b_.modelSha256);
    Add(ChangeSection::kModel, "vertical axis", AxisText(a_.verticalAxis),
        AxisText(b_.verticalAxis));
    Add(ChangeSection::kModel, "units of the host", a_.hostUnits, b_.hostUnits);
    Add(ChangeSection::kModel, "nodes", CountText(static_cast<std::uintmax_t>(a_.nodes)),
        CountText(static_cast<std::uintmax_t>(b_.nodes)));
    Add(ChangeSection::kModel, "members", CountText(static_cast<std::uintmax_t>(a_.members)),
        CountText(static_cast<std::uintmax_t>(b_.members)));
    AddStoriesOfOneRun();
    ForEachPair([this](const StoryRead& a, const StoryRead& b) {
        const std::string name = StoryName(a, b);
        Add(ChangeSection::kModel, name + ": levels", LevelsOf(a), LevelsOf(b));
        comparison_.changes.back().isChange = std::abs(a.lowerLevel - b.lowerLevel) > kLevelMoved ||
                                              std::abs(a.upperLevel - b.upperLevel) > kLevelMoved;
        Add(ChangeSection::kModel, name + ": story members", std::to_string(a.storyMembers),
            std::to_string(b.storyMembers));
        Add(ChangeSection::kModel, name + ": weight above (kN)",
            NumberText(a.weight, kForceFormat, kTerminalNumbers),
            NumberText(b.weight, kForceFormat, kTerminalNumbers));
        comparison_.changes.back().isChange = !IsSame(a.weight, b.weight, tolerance_);
    });
}

// Its verdicts have come or gone.
void Comparer::AddStoriesOfOneRun() {
    for (const StoryPair& pair : comparison_.stories) {
        if (pair.a && pair.b) continue;
        const StoryRead& story = pair.a ? a_.stories[*pair.a] : b_.stories[*pair.b];
        const std::string levels = LevelsOf(story);
        Add(ChangeSection::kModel,
            "story " + std::to_string(story.number) + (pair.a ? " removed" : " added"),
            pair.a ? levels : "", pair.b ? levels : "");
        comparison_.changes.back().isVerdict = true;
    }
}

void Comparer::AddCheck(const std::string& what, const std::string& before,
                        const std::string& after, bool isSame, bool isVerdict) {
    comparison_.changes.push_back(
        {ChangeSection::kChecks, what, before, after, "", !isSame || isVerdict, isVerdict});
}

// How far G and R have moved across the direction, where that is what the modulus is about.
std::string Comparer::MovedCenters(const StoryRead& a, const StoryRead& b, std::size_t axis) const {
    const std::size_t across = 1 - axis;
    const std::string plan = across == 0 ? "x" : DirectionName(a_, b_, 1) == "Z" ? "z" : "y";
    std::string text;
    const auto add = [&](const char* name, const FigureRead& from, const FigureRead& to) {
        if (!from || !to || !(std::abs(*to - *from) >= kCenterMoved)) return;
        if (!text.empty()) text += ", ";
        text += std::string(name) + " moved " +
                NumberText(std::abs(*to - *from), kCoordinateFormat, kTerminalNumbers) + " mm in " +
                plan;
    };
    add("G", a.gravityCenter[across], b.gravityCenter[across]);
    add("R", a.rigidityCenter[across], b.rigidityCenter[across]);
    return text;
}

void Comparer::CompareDirection(const StoryRead& a, const StoryRead& b, std::size_t axis) {
    const DirectionRead& before = a.directions.at(axis);
    const DirectionRead& after = b.directions.at(axis);
    const std::string name = StoryName(a, b) + ", " + DirectionName(a_, b_, axis) + ": ";
    AddCheck(name + "angle",
             Judged(AngleTextOf(a, before, kTerminalNumbers), before.angleCode, before.angleTool),
             Judged(AngleTextOf(b, after, kTerminalNumbers), after.angleCode, after.angleTool),
             IsSame(before.angle, after.angle, tolerance_),
             before.angleCode != after.angleCode || before.angleTool != after.angleTool);
    const auto ratio = [](const DirectionRead& read) {
        return Judged(RatioTextOf(read, kTerminalNumbers), read.ratioCode, read.ratioTool);
    };
    AddCheck(name + "stiffness ratio", ratio(before), ratio(after),
             IsSame(before.ratio, after.ratio, tolerance_),
             before.ratioCode != after.ratioCode || before.ratioTool != after.ratioTool);
    const auto modulus = [](const DirectionRead& read) {
        return Judged(ModulusTextOf(read, kTerminalNumbers), read.modulusCode, read.modulusTool);
    };
    AddCheck(name + "eccentricity", modulus(before), modulus(after),
             IsSame(before.modulus, after.modulus, tolerance_),
             before.modulusCode != after.modulusCode || before.modulusTool != after.modulusTool);
    if (comparison_.changes.back().isChange)
        comparison_.changes.back().note = MovedCenters(a, b, axis);
}

void Comparer::CompareChecks() {
    const auto end = [](const RunRead& run) {
        return run.complete ? std::string("complete") : "ended early: " + run.failure;
    };
    Add(ChangeSection::kChecks, "run", end(a_), end(b_));
    AddCheck("verdict by the code", TextOf(a_.code), TextOf(b_.code), true, a_.code != b_.code);
    AddCheck("verdict by the tool", TextOrNone(a_.tool), TextOrNone(b_.tool), true,
             a_.tool != b_.tool);
    ForEachPair([this](const StoryRead& a, const StoryRead& b) {
        for (const std::size_t axis : {std::size_t{0}, std::size_t{1}})
            CompareDirection(a, b, axis);
    });
}

// Remarks are the same when they have the same id and texts.
void Comparer::CompareRemarks() {
    const auto keyOf = [](const RemarkRead& remark) { return remark.id + "\n" + remark.en; };
    const auto textOf = [](const RemarkRead& remark) { return remark.kind + ": " + remark.en; };
    std::multiset<std::string> left;
    for (const RemarkRead& remark : b_.remarks)
        left.insert(keyOf(remark));
    std::multiset<std::string> common;
    for (const RemarkRead& remark : a_.remarks) {
        const auto same = left.find(keyOf(remark));
        const bool isGone = same == left.end();
        if (!isGone) {
            common.insert(*same);
            left.erase(same);
        }
        Add(ChangeSection::kRemarks, "remark " + remark.id, textOf(remark),
            isGone ? "" : textOf(remark));
    }
    for (const RemarkRead& remark : b_.remarks) {
        const auto same = common.find(keyOf(remark));
        if (same != common.end())
            common.erase(same);
        else
            Add(ChangeSection::kRemarks, "remark " + remark.id, "", textOf(remark));
    }
}

}  // namespace

std::string DirectionName(const RunRead& a, const RunRead& b, std::size_t axis) {
    if (axis == 0) return "X";
    for (const RunRead* run : {&b, &a})
        if (!run->secondDirection.empty()) return run->secondDirection;
    return "2";
}

bool IsSame(const FigureRead& a, const FigureRead& b, double tolerance) {
    if (!a || !b) return a.has_value() == b.has_value();
    return std::abs(*a - *b) <= tolerance * std::max(std::abs(*a), std::abs(*b));
}

bool Comparison::AnyVerdictChanged() const {
    return std::ranges::any_of(changes, [](const Change& change) { return change.isVerdict; });
}

Comparison CompareRuns(const RunRead& a, const RunRead& b, double tolerance) {
    return Comparer(a, b, tolerance).Compare();
}
