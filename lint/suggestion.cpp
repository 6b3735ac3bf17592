#include "lint/suggestion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <utility>

#include "input/input_line.h"
#include "input/input_readers.h"
#include "input/line_text.h"
#include "lint/as_read.h"
#include "lint/beam_levels.h"
#include "lint/model_check.h"
#include "lint/repair.h"
#include "route2/end_forces.h"
#include "route2/story_drift.h"
#include "route2/story_members.h"
#include "route2/story_shear.h"
#include "route2/tolerances.h"
#include "route2/upright.h"

namespace {

constexpr std::size_t kMostCharacters = 198;  // of a line that is read whole
constexpr double kMostAcross = 0.05;          // of the shear along, of a case of one direction
constexpr double kRelief = 0.008333;          // 1/120, cut

struct Cases {
    std::string dead;
    std::string x;
    std::string second;
};

// Puts the file together; comments stand on top of everything else.
class Draft {
public:
    // Blanks and commas only separate: a comment ends with a comma.
    void Remark(const std::string& text) { remarks_ += "# " + text + ",\n"; }

    // A list of numbers in as many comments as it needs.
    void Remark(const std::string& text, const std::vector<std::int32_t>& numbers) {
        std::string line = text;
        for (const std::int32_t number : numbers) {
            const std::string more = ' ' + std::to_string(number);
            if (line.size() + more.size() + 4 > kMostCharacters) {
                Remark(line);
                line = "  and";
            }
            line += more;
        }
        Remark(line);
    }

    void Line(const std::string& line) { lines_ += line + '\n'; }

    // A list in one line that is read whole. False when it is too long.
    bool List(const std::string& start, const std::vector<std::string>& values) {
        std::string line = start;
        for (const std::string& value : values)
            line += value + ',';
        if (line.size() > kMostCharacters) return false;
        Line(line);
        return true;
    }

    // A list that may be given in several lines.
    void Lists(const std::string& start, const std::vector<std::int32_t>& values) {
        std::string line = start;
        for (const std::int32_t value : values) {
            const std::string more = std::to_string(value) + ',';
            if (line.size() + more.size() > kMostCharacters) {
                Line(line);
                line = start;
            }
            line += more;
        }
        Line(line);
    }

    std::string Text() const { return remarks_ + lines_ + "FIN\n"; }

private:
    std::string remarks_;
    std::string lines_;
};

// What the file says once it is put right.
struct Meant {
    explicit Meant(const InputCheck& given)
        : text(Repair(given.text)), check(CheckInputText(text)) {
        asRead = ReadWithoutModel(text).value_or(AsRead{});
    }

    bool Has(std::string_view id) const { return HasFinding(check.findings, id); }

    bool HasCases() const {
        constexpr std::array<std::string_view, 5> kFaultsOfCases{"K06", "L02", "L03", "L04", "L05"};
        return std::ranges::none_of(kFaultsOfCases, [&](std::string_view id) { return Has(id); });
    }

    InputText text;
    InputCheck check;
    AsRead asRead;
};

Cases CasesOf(const Meant& meant) {
    if (!meant.HasCases()) return {std::to_string(meant.asRead.dead.number), "?", "?"};
    return {std::to_string(meant.asRead.dead.number),
            std::to_string(meant.asRead.earthquake[0].number),
            std::to_string(meant.asRead.earthquake[1].number)};
}

void AddCases(const Cases& cases, Draft& draft) {
    if (cases.x == "?") draft.Remark("? name the two earthquake load cases");
    draft.Line("DeadLoadCaseNumber," + cases.dead + ',');
    draft.Line("EarthquakeLoadCaseNumber," + cases.x + ',' + cases.second + ',');
}

void AddLevels(const std::vector<double>& levels, Draft& draft) {
    if (levels.size() < 2) return;
    std::vector<std::string> values;
    values.reserve(levels.size());
    for (const double level : levels)
        values.push_back(RoundedText(level));
    if (!draft.List("FloorLevel,", values))
        draft.Remark("the floor levels do not fit into one line; they are found in the model");
}

void AddSheetLines(const Meant& meant, Draft& draft) {
    for (const InputLine& line : ReadInputLines(meant.text.Text()).lines)
        if (!line.IsRest() && line.HasComma() && line.text.starts_with("Sheet"))
            draft.Line(std::string(line.text));
}

void AddBlock(const std::map<std::int32_t, std::vector<std::int32_t>>& stories, Draft& draft) {
    draft.Line("StoryMember,");
    for (const auto& [story, members] : stories)
        if (!members.empty()) draft.Lists(std::to_string(story) + ',', members);
}

// Values that a run takes and that somebody can mean. `storyCount`: nothing when the levels are not
// known.
void AddAllowables(const Meant& meant, std::optional<std::size_t> storyCount, Draft& draft) {
    draft.Remark("relief to 1/120 (enclose the proof): AllowStoryDeformAngle, and below it");
    for (std::size_t story = 1; story <= storyCount.value_or(1); ++story)
        draft.Remark("relief: " + std::to_string(story) + ',' + NumberText(kRelief));
    if (meant.Has("A06")) {
        draft.Remark("allowable values were left out that nobody can mean");
        return;
    }
    constexpr std::size_t kAnyNumber = std::numeric_limits<std::int32_t>::max();
    InputFile file = InputFile::OfText(meant.text.Text());
    std::optional<Keyword> current;
    for (const auto& entry : ReadAllowableValues(file, storyCount.value_or(kAnyNumber)).entries) {
        if (current != entry.keyword) draft.Line(std::string(NameOf(entry.keyword)) + ',');
        current = entry.keyword;
        draft.Line(std::to_string(entry.story) + ',' + NumberText(entry.value.value) + ',');
    }
}

void AddReportedMembers(const std::vector<std::int32_t>& members, Draft& draft) {
    std::vector<std::string> values;
    std::set<std::int32_t> seen;
    for (const std::int32_t member : members)
        if (member != 0 && seen.insert(member).second) values.push_back(std::to_string(member));
    if (values.empty()) return;
    if (!draft.List("MemberDeformAngle,", values))
        draft.Remark("the members to report do not fit into one line");
}

Draft BeginDraft(const std::string& inputPath) {
    Draft draft;
    std::string name = inputPath.substr(inputPath.find_last_of("/\\") + 1);
    std::ranges::replace_if(
        name, [](char c) { return c == ',' || static_cast<unsigned char>(c) < 0x20; }, ' ');
    draft.Remark("suggested by quarnel-cli lint for " + name +
                 "; read every line before you use it");
    return draft;
}

// --- Of a building

// The shears of a story's members under one case.
struct Shears {
    std::int32_t loadCase = 0;
    PerDirection sum{};
};

std::optional<Shears> FindShears(const ModelView& view, const MeantStory& story,
                                 std::int32_t loadCase) {
    const AijCodeRoute2& engine = view.Engine();
    const NumberIndex positions(engine.memberNumbers);
    Shears shears{loadCase, {}};
    try {
        for (const std::int32_t number : story.members) {
            const PlacedMember& member = *view.Find(number);
            SixDoubles force{};
            engine.hostLink->GetMemberEndForces(
                number, LowerEnd(member.startNode, member.lowerNode), loadCase, force);
            const PerDirection shear = ShearOf(force, ShearAxes(engine, positions, number),
                                               engine.zIsVertical, engine.inchUnits);
            shears.sum[kX] += shear[kX];
            shears.sum[kZ] += shear[kZ];
        }
    } catch (const HostCallError&) {
        return std::nullopt;  // a recording that lacks this case
    }
    return shears;
}

bool ActsAlong(const Shears& shears, std::size_t axis) {
    const double along = shears.sum[axis];
    const double across = std::abs(shears.sum[axis == kX ? kZ : kX]);
    return along > kNearlyZero && across <= kMostAcross * along;
}

// The first primary case that pushes along the axis and hardly across.
std::string FindCaseAlong(const ModelView& view, std::size_t axis) {
    const AijCodeRoute2& engine = view.Engine();
    const bool canAsk = view.HasStories() && engine.hostLink->AreResultsAvailable();
    for (std::int32_t i = 0; canAsk && i < engine.numPrimaryLoadCases; ++i) {
        const std::int32_t loadCase = engine.loadCaseNumbers[static_cast<std::size_t>(i)];
        const auto shears = FindShears(view, view.Stories().front(), loadCase);
        if (shears && ActsAlong(*shears, axis)) return std::to_string(loadCase);
    }
    return "?";
}

bool HasCase(const ModelView& view, std::int32_t number) {
    const auto& numbers = view.Engine().loadCaseNumbers;
    return std::ranges::find(numbers, number) != numbers.end();
}

Cases CasesFor(const ModelView& view, const Meant& meant, Draft& draft) {
    Cases cases = CasesOf(meant);
    const auto& [x, second] = meant.asRead.earthquake;
    const bool areGiven =
        meant.HasCases() && HasCase(view, x.number) && HasCase(view, second.number);
    if (areGiven) return cases;
    cases.x = FindCaseAlong(view, kX);
    cases.second = FindCaseAlong(view, kZ);
    if (cases.x != "?")
        draft.Remark("? case " + cases.x + " acts along X: see that it is the seismic force alone");
    if (cases.second != "?")
        draft.Remark("? case " + cases.second + " acts along " + std::string(1, view.Second()) +
                     ": see that it is the seismic force alone");
    return cases;
}

// The members of each story between the suggested floors.
class StorySearch {
public:
    StorySearch(const ModelView& view, const std::vector<double>& levels)
        : view_(view), levels_(levels) {
        for (std::size_t i = 0; i + 1 < levels_.size(); ++i)
            Search(i);
    }

    // Cut members that the search of a run would not count.
    bool IsAnyMissing() const { return isAnyMissing_; }

    const std::map<std::int32_t, std::vector<std::int32_t>>& Members() const { return members_; }

    bool Has(std::int32_t member) const {
        return std::ranges::any_of(members_, [member](const auto& story) {
            return std::ranges::find(story.second, member) != story.second.end();
        });
    }

    // Cut members that cannot be counted, by story.
    const std::map<std::int32_t, std::vector<std::int32_t>>& Left() const { return left_; }

private:
    void Search(std::size_t i) {
        StoryInfo floors;
        floors.lowerLevel = levels_[i];
        floors.upperLevel = levels_[i + 1];
        const auto story = static_cast<std::int32_t>(i + 1);
        std::set<std::int32_t> found;
        for (const PlacedMember& member : view_.Members())
            if (RunsBetweenFloors(floors, view_.LowerHeight(member), view_.UpperHeight(member)) &&
                found.insert(member.number).second)
                members_[story].push_back(member.number);
        const bool zIsVertical = view_.Engine().zIsVertical;
        for (const PlacedMember& member : CutMembers(floors, view_.Members(), zIsVertical)) {
            if (!found.insert(member.number).second) continue;
            isAnyMissing_ = true;
            const bool isFullHeight =
                std::abs(view_.HeightOf(member) - StoryHeight(floors)) < kSameLevel;
            const bool canBeCounted =
                isFullHeight && IsUpright(member.lower, member.upper, zIsVertical);
            (canBeCounted ? members_ : left_)[story].push_back(member.number);
        }
    }

    const ModelView& view_;
    std::vector<double> levels_;
    std::map<std::int32_t, std::vector<std::int32_t>> members_;
    std::map<std::int32_t, std::vector<std::int32_t>> left_;
    bool isAnyMissing_ = false;
};

}  // namespace

std::string SuggestInput(const InputCheck& check, const std::string& inputPath) {
    const Meant meant(check);
    Draft draft = BeginDraft(inputPath);
    AddCases(CasesOf(meant), draft);
    const std::vector<double>& levels = meant.check.meantLevels.levels;
    AddLevels(levels, draft);
    AddSheetLines(meant, draft);
    if (meant.asRead.storyMembers && !meant.Has("S05")) AddBlock(*meant.asRead.storyMembers, draft);
    AddAllowables(meant, meant.check.meantLevels.StoryCount(std::nullopt), draft);
    AddReportedMembers(meant.asRead.reportedMembers, draft);
    return draft.Text();
}

std::string SuggestInputFor(const ModelView& view, const InputCheck& check,
                            const std::string& inputPath) {
    const Meant meant(check);
    Draft draft = BeginDraft(inputPath);
    AddCases(CasesFor(view, meant, draft), draft);
    const std::vector<double> levels = LevelsOfFloors(view);
    AddLevels(levels, draft);
    AddSheetLines(meant, draft);
    const StorySearch search(view, levels);
    for (const auto& [story, members] : search.Left())
        draft.Remark("story " + std::to_string(story) + ": cannot be counted:", members);
    if (search.IsAnyMissing()) AddBlock(search.Members(), draft);
    AddAllowables(meant, levels.size() - 1, draft);
    std::vector<std::int32_t> reported = meant.asRead.reportedMembers;
    std::erase_if(reported, [&search](std::int32_t member) { return !search.Has(member); });
    AddReportedMembers(reported, draft);
    return draft.Text();
}
