#include "sheet/verdict_notes.h"

#include <algorithm>
#include <cmath>

#include "report/number_text.h"
#include "route2/tolerances.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

std::string NameOf(VerdictNote note) {
    return Concat({"D", std::to_string(static_cast<int>(note))});
}

Words TextOfNote(VerdictNote note) {
    switch (note) {
        case VerdictNote::kEqualToLimit:
            return Text("D1");
        case VerdictNote::kNegative:
            return Text("D2");
        case VerdictNote::kMaxXNotJudged:
            return Text("D3");
        case VerdictNote::kMeanPasses:
            return Text("D4");
        case VerdictNote::kOtherAllowable:
            return Text("D5");
        case VerdictNote::kFallbackPasses:
            return Text("D6");
        case VerdictNote::kNotANumber:
            return Text("D7");
        case VerdictNote::kNoDrift:
            return Text("D8");
        case VerdictNote::kLeaningMax:
            return Text("D9");
        case VerdictNote::kOtherMemberHeight:
            return Text("D10");
    }
    return {};
}

bool SayTheSame(CodeVerdict code, ToolVerdict tool) {
    return code == (tool == ToolVerdict::kPass ? CodeVerdict::kOk : CodeVerdict::kNg);
}

bool IsEqual(const Figure& value, double limit) {
    return value && std::abs(*value - limit) <= kRelativeTolerance * std::abs(limit);
}

bool IsNotANumber(const std::optional<double>& ofResults) {
    return ofResults && !std::isfinite(*ofResults);
}

bool HasOtherHeight(const StoryFindings& story, const std::optional<std::int32_t>& member) {
    return std::ranges::any_of(story.members, [&](const MemberFindings& one) {
        return one.number == member && std::abs(one.height - story.height) >= kSameLevel;
    });
}

// An angle that the tool has judged, signed, against what the code says of the story.
VerdictNotes NotesOnAngle(const StoryFindings& story, std::size_t axis, const Figure& angle,
                          ToolVerdict tool, const std::optional<double>& ofResults) {
    const WorstUprightMember& worst = story.directions[axis].worstUpright;
    const double allowable = story.allowableAngle;
    VerdictNotes notes;
    if (IsNotANumber(ofResults)) return {VerdictNote::kNotANumber};
    if (worst.code == CodeVerdict::kUndetermined) return {VerdictNote::kFallbackPasses};
    const bool amountPasses =
        angle && JudgeAngleByCode(std::abs(*angle), worst.allowable) == CodeVerdict::kOk;
    if (tool == ToolVerdict::kPass) {
        if (amountPasses) notes.push_back(VerdictNote::kMeanPasses);
        if (!amountPasses && angle && *angle < 0.0) notes.push_back(VerdictNote::kNegative);
        if (!amountPasses && angle && allowable > worst.allowable)
            notes.push_back(VerdictNote::kOtherAllowable);
    } else {
        if (IsEqual(angle, allowable)) notes.push_back(VerdictNote::kEqualToLimit);
        if (allowable < worst.allowable) notes.push_back(VerdictNote::kOtherAllowable);
    }
    return notes;
}

}  // namespace

VerdictNotes AngleNotes(const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    const auto& tool = direction.toolMeanVerdict;
    if (!tool || SayTheSame(direction.worstUpright.code, *tool)) return {};
    VerdictNotes notes =
        NotesOnAngle(story, axis, direction.meanAngle, *tool, direction.results.meanAngle);
    // A mean that fails beside upright members that do not: leaning members are in the mean.
    if (notes.empty()) notes.push_back(VerdictNote::kLeaningMax);
    if (HasOtherHeight(story, direction.worstUpright.member))
        notes.push_back(VerdictNote::kOtherMemberHeight);
    return notes;
}

VerdictNotes ToolMaxNotes(const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    const ToolMax& max = direction.toolMax;
    if (!max.verdict || SayTheSame(direction.worstUpright.code, *max.verdict)) return {};
    VerdictNotes notes =
        NotesOnAngle(story, axis, max.angle, *max.verdict, direction.results.maxAngle);
    // Not the mean, but another member than the worst: its drift has the other sign.
    std::ranges::replace(notes, VerdictNote::kMeanPasses, VerdictNote::kNegative);
    if (max.leaning.value_or(false)) notes.push_back(VerdictNote::kLeaningMax);
    if (HasOtherHeight(story, max.member)) notes.push_back(VerdictNote::kOtherMemberHeight);
    return notes;
}

VerdictNotes RatioNotes(const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    const auto& tool = direction.stiffnessRatioTool;
    if (!tool || SayTheSame(direction.stiffnessRatioCode, *tool)) return {};
    if (direction.meanDrift == 0.0) return {VerdictNote::kNoDrift};
    if (IsNotANumber(direction.results.stiffnessRatio)) return {VerdictNote::kNotANumber};
    if (direction.stiffnessRatioCode == CodeVerdict::kUndetermined)
        return {VerdictNote::kFallbackPasses};
    VerdictNotes notes;
    if (IsEqual(direction.stiffnessRatio, story.allowableRatio))
        notes.push_back(VerdictNote::kEqualToLimit);
    if (story.allowableRatio != kCodeStiffnessRatio) notes.push_back(VerdictNote::kOtherAllowable);
    return notes;
}

VerdictNotes EccentricityNotes(const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    const auto& tool = direction.eccentricityTool;
    if (!tool || SayTheSame(direction.eccentricityCode, *tool)) return {};
    if (IsNotANumber(direction.results.eccentricityModulus)) return {VerdictNote::kNotANumber};
    if (direction.eccentricityCode == CodeVerdict::kUndetermined)
        return {VerdictNote::kFallbackPasses};
    VerdictNotes notes;
    if (IsEqual(direction.eccentricityModulus, story.allowableModulus))
        notes.push_back(VerdictNote::kEqualToLimit);
    if (story.allowableModulus != kCodeEccentricityModulus)
        notes.push_back(VerdictNote::kOtherAllowable);
    return notes;
}

std::string NoteList::Marks(const VerdictNotes& notes, int story, const LimitTexts& limits) {
    std::string html;
    for (const VerdictNote note : notes) {
        html += Mark(note);
        if (note != VerdictNote::kOtherAllowable) continue;
        FilledWords words = Filled(
            Text("limits of a story"),
            {{"story", sheet_.names.Story(story)}, {"input", limits.input}, {"code", limits.code}});
        auto& all = notes_[static_cast<std::size_t>(note)].limits;
        if (std::ranges::find(all, words.ja, &FilledWords::ja) == all.end())
            all.push_back(std::move(words));
    }
    return html;
}

std::string NoteList::Mark(VerdictNote note) {
    notes_[static_cast<std::size_t>(note)].isUsed = true;
    const std::string name = NameOf(note);
    return Element("sup", {{"data-note", name}}, Concat({"*", name}));
}

std::string NoteList::Explained() const {
    std::string html;
    for (std::size_t number = 1; number < notes_.size(); ++number) {
        if (!notes_[number].isUsed) continue;
        const auto note = static_cast<VerdictNote>(number);
        const FilledWords text =
            Filled(TextOfNote(note), {{"limits", Joined(notes_[number].limits)}});
        html += Element("li", {}, "<b>*" + NameOf(note) + "</b> " + InBoth(text));
    }
    return html.empty() ? html : Element("ul", {{"class", "notes"}}, html) + "\n";
}

std::string AllNotesTable() {
    Table table("D", Text("notes on verdicts"), {18, 160}, "text notes-table");
    for (int number = 1; number <= 10; ++number) {
        const auto note = static_cast<VerdictNote>(number);
        const FilledWords text = Filled(TextOfNote(note), {{"limits", Text("some limits")}});
        table.Row(RowHead(Concat({"*", NameOf(note)})) + Cell(InBoth(text)));
    }
    return table.TakeHtml();
}
