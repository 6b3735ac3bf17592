// Rules on the members that the file names, and on those that are in no story.

#include <algorithm>
#include <cmath>
#include <set>

#include "input/line_text.h"
#include "lint/model_check.h"
#include "lint/model_rules.h"
#include "route2/gravity_center.h"
#include "route2/story_members.h"
#include "route2/tolerances.h"
#include "route2/upright.h"

namespace {

constexpr double kBesideAFloor = 10.0;  // mm; farther off, a member was not meant for the floor

std::string Height(double height) {
    return RoundedText(height);
}

// Fields that another finding says are no number: their 0 is not asked about.
bool IsCleanField(const InputText& text, const InputPlace& place) {
    const std::string_view line = text.Line(place.line);
    const std::size_t offset = place.offset - std::min(place.offset, text.HiddenBytes(place.line));
    if (offset > line.size()) return false;
    return ConvertWholeNumber(line.substr(offset, place.length)).isClean;
}

// --- Numbers that the model does not have

void CheckNamed(const ModelView& view, const InputCheck& check, LintFindingList& findings) {
    const std::vector<std::int32_t>& numbers = view.Engine().memberNumbers;
    const std::set<std::int32_t> known(numbers.begin(), numbers.end());
    for (const StoryMemberBlock::Entry& entry : view.Block().entries) {
        const std::int32_t member = entry.member.value;
        if (known.contains(member) || !IsCleanField(check.text, entry.member.place)) continue;
        findings.Add(FindingOf(ModelRule::kM12StoryMember, entry.member.place)
                         .With("m", std::to_string(member))
                         .Member(member)
                         .Story(entry.story));
    }
}

void CheckReported(const ModelView& view, const InputCheck& check, LintFindingList& findings) {
    std::set<std::int32_t> inStories;
    for (const MeantStory& story : view.Stories())
        inStories.insert(story.members.begin(), story.members.end());
    for (const Placed<std::int32_t>& member : view.Reported().members) {
        if (inStories.contains(member.value) || !IsCleanField(check.text, member.place)) continue;
        const auto& numbers = view.Engine().memberNumbers;
        const bool isInModel = std::ranges::find(numbers, member.value) != numbers.end();
        if (isInModel && (!view.HasStories() || view.EndedBeforeStories())) continue;
        const ModelRule rule = isInModel ? ModelRule::kM17 : ModelRule::kM12Reported;
        findings.Add(FindingOf(rule, member.place)
                         .With("m", std::to_string(member.value))
                         .Member(member.value));
    }
}

// --- Members that the file names for a story

// Runs through all stories from the lower to the upper one.
bool Spans(const ModelView& view, const PlacedMember& member,
           const std::set<std::int32_t>& stories) {
    const auto& all = view.Stories();
    const StoryInfo& lowest = all[static_cast<std::size_t>(*stories.begin()) - 1].floors;
    const StoryInfo& highest = all[static_cast<std::size_t>(*stories.rbegin()) - 1].floors;
    return view.LowerHeight(member) < lowest.lowerLevel + kSameLevel &&
           view.UpperHeight(member) > highest.upperLevel - kSameLevel;
}

class NamedMembers {
public:
    NamedMembers(const ModelView& view, LintFindingList& findings)
        : view_(view), findings_(findings) {}

    void Check() {
        const auto storyCount = static_cast<std::int64_t>(view_.Stories().size());
        for (const StoryMemberBlock::Entry& entry : view_.Block().entries)
            if (entry.story <= storyCount) storiesOf_[entry.member.value].insert(entry.story);
        for (const StoryMemberBlock::Entry& entry : view_.Block().entries) {
            if (entry.story > storyCount) break;
            if (told_.insert({entry.story, entry.member.value}).second) CheckEntry(entry);
        }
    }

private:
    void CheckEntry(const StoryMemberBlock::Entry& entry) {
        const PlacedMember* const member = view_.Find(entry.member.value);
        if (member == nullptr) return;
        const StoryInfo& floors = view_.Stories()[static_cast<std::size_t>(entry.story) - 1].floors;
        if (view_.IsLevel(*member)) return Add(ModelRule::kM15, entry, *member, floors);
        const std::set<std::int32_t>& stories = storiesOf_[entry.member.value];
        // S09 says that it stands in stories to which it does not belong.
        if (stories.size() > 1 && !Spans(view_, *member, stories)) return;
        const bool isInStory =
            RunsBetweenFloors(floors, view_.LowerHeight(*member), view_.UpperHeight(*member));
        if (isInStory) return;
        const double difference = view_.HeightOf(*member) - StoryHeight(floors);
        const bool isAsHigh = std::abs(difference) < kSameLevel;
        Add(isAsHigh ? ModelRule::kM13 : ModelRule::kM14, entry, *member, floors);
    }

    void Add(ModelRule rule, const StoryMemberBlock::Entry& entry, const PlacedMember& member,
             const StoryInfo& floors) {
        const double factor = view_.HeightOf(member) / StoryHeight(floors);
        const auto threePlaces = [](double value) {
            return RoundedText(std::round(value * 1000.0) / 1000.0);
        };
        findings_.Add(FindingOf(rule, entry.member.place)
                          .With("m", std::to_string(entry.member.value))
                          .With("s", std::to_string(entry.story))
                          .With("a", Height(view_.LowerHeight(member)))
                          .With("b", Height(view_.UpperHeight(member)))
                          .With("c", Height(floors.lowerLevel))
                          .With("d", Height(floors.upperLevel))
                          .With("f", threePlaces(factor))
                          .With("g", threePlaces(factor * factor))
                          .Member(entry.member.value)
                          .Story(entry.story));
    }

    const ModelView& view_;
    LintFindingList& findings_;
    std::map<std::int32_t, std::set<std::int32_t>> storiesOf_;
    std::set<std::pair<std::int32_t, std::int32_t>> told_;
};

// --- Members that are missing in a story

bool IsUprightMember(const ModelView& view, const PlacedMember& member) {
    return IsUpright(member.lower, member.upper, view.Engine().zIsVertical);
}

std::vector<std::int32_t> FindUnnamed(const ModelView& view, const MeantStory& story) {
    const std::set<std::int32_t> named(story.members.begin(), story.members.end());
    std::vector<std::int32_t> unnamed;
    for (const PlacedMember& member : view.Members())
        if (IsUprightMember(view, member) && !named.contains(member.number) &&
            RunsBetweenFloors(story.floors, view.LowerHeight(member), view.UpperHeight(member)))
            unnamed.push_back(member.number);
    return unnamed;
}

InputPlace FirstPlaceOf(const ModelView& view, std::int32_t story) {
    for (const StoryMemberBlock::Entry& entry : view.Block().entries)
        if (entry.story == story) return {entry.member.place.line, 0, 1};
    return {view.Block().line, 0, 1};
}

void CheckUnnamed(const ModelView& view, std::int32_t story, LintFindingList& findings) {
    const std::vector<std::int32_t> unnamed =
        FindUnnamed(view, view.Stories()[static_cast<std::size_t>(story) - 1]);
    if (unnamed.empty()) return;
    LintFinding finding = FindingOf(ModelRule::kM16, FirstPlaceOf(view, story));
    for (const std::int32_t member : unnamed)
        finding.Member(member);
    findings.Add(finding.Story(story)
                     .With("k", std::to_string(unnamed.size()))
                     .With("s", std::to_string(story))
                     .With("list", NumberList(unnamed)));
}

// Why a member that is cut is in no story.
enum class WhyNotCounted { kNotNamed, kTwoStories, kLanding, kBetweenFloors };

bool IsAFloor(const std::vector<double>& levels, double height) {
    return std::ranges::any_of(
        levels, [height](double level) { return std::abs(level - height) < kSameLevel; });
}

WhyNotCounted WhyOf(const ModelView& view, const StoryInfo& floors, const PlacedMember& member) {
    if (RunsBetweenFloors(floors, view.LowerHeight(member), view.UpperHeight(member)))
        return WhyNotCounted::kNotNamed;
    const std::vector<double>& levels = view.Engine().floorLevels;
    const bool lower = IsAFloor(levels, view.LowerHeight(member));
    const bool upper = IsAFloor(levels, view.UpperHeight(member));
    if (lower && upper) return WhyNotCounted::kTwoStories;
    return lower || upper ? WhyNotCounted::kLanding : WhyNotCounted::kBetweenFloors;
}

struct WhyTexts {
    WhyNotCounted why;
    const char* en;
    const char* ja;
};

constexpr WhyTexts kWhyTexts[] = {
    {WhyNotCounted::kNotNamed, "not named: ", "指定されていない: "},
    {WhyNotCounted::kTwoStories, "two stories high: ", "複数階にわたる: "},
    {WhyNotCounted::kLanding, "split at a landing: ", "踊場で分かれる: "},
    {WhyNotCounted::kBetweenFloors, "ending between floors: ", "階の途中で終わる: "},
};

void AddReasons(const ModelView& view, const StoryInfo& floors,
                const std::vector<PlacedMember>& members, LintFinding& finding) {
    std::string en, ja;
    for (const WhyTexts& texts : kWhyTexts) {
        std::vector<std::int32_t> numbers;
        for (const PlacedMember& member : members)
            if (WhyOf(view, floors, member) == texts.why) numbers.push_back(member.number);
        if (numbers.empty()) continue;
        en += (en.empty() ? "" : "; ") + (texts.en + NumberList(numbers));
        ja += (ja.empty() ? "" : "、") + (texts.ja + NumberList(numbers));
    }
    finding.With("why", en, ja);
}

void CheckCut(const ModelView& view, std::int32_t number, LintFindingList& findings) {
    const MeantStory& story = view.Stories()[static_cast<std::size_t>(number) - 1];
    const std::vector<PlacedMember> cut =
        CutMembers(story.floors, view.Members(), view.Engine().zIsVertical);
    const std::vector<PlacedMember> notCounted = NotCounted(view, story);
    if (notCounted.empty()) return;
    const bool isMoreThanHalf = 2 * notCounted.size() > cut.size();
    LintFinding finding = FindingOf(isMoreThanHalf ? ModelRule::kM10MoreThanHalf : ModelRule::kM10);
    for (const PlacedMember& member : notCounted)
        finding.Member(member.number);
    finding.Story(number)
        .With("k", std::to_string(notCounted.size()))
        .With("n", std::to_string(cut.size()))
        .With("s", std::to_string(number))
        .With("list", NumberList(finding.members));
    AddReasons(view, story.floors, notCounted, finding);
    findings.Add(finding);
}

void CheckStoryWithoutMembers(const ModelView& view, std::int32_t number,
                              LintFindingList& findings) {
    // Of a block, the rules of the file say it.
    if (view.HasBlock()) return;
    const StoryInfo& floors = view.Stories()[static_cast<std::size_t>(number) - 1].floors;
    findings.Add(FindingOf(ModelRule::kM09)
                     .Story(number)
                     .With("s", std::to_string(number))
                     .With("a", Height(floors.lowerLevel))
                     .With("b", Height(floors.upperLevel)));
}

// --- What a story's members are

void CheckLeaning(const ModelView& view, LintFindingList& findings) {
    LintFinding finding = FindingOf(ModelRule::kM21);
    for (std::size_t i = 0; i < view.Stories().size(); ++i) {
        for (const std::int32_t number : view.Stories()[i].members) {
            const PlacedMember& member = *view.Find(number);
            if (view.IsLevel(member) || IsUprightMember(view, member)) continue;
            finding.Member(number).Story(static_cast<std::int32_t>(i + 1));
        }
    }
    if (finding.members.empty()) return;
    findings.Add(finding.With("list", NumberList(finding.members)));
}

// How far an end lies beside the nearest floor, if that is little and too much.
std::optional<double> FindGap(const ModelView& view, double height) {
    for (const double level : view.Engine().floorLevels) {
        const double distance = std::abs(level - height);
        if (kSameLevel <= distance && distance <= kBesideAFloor) return distance;
    }
    return std::nullopt;
}

void CheckGaps(const ModelView& view, LintFindingList& findings) {
    std::set<std::int32_t> inStories;
    for (const MeantStory& story : view.Stories())
        inStories.insert(story.members.begin(), story.members.end());
    for (const PlacedMember& member : view.Members()) {
        if (view.IsLevel(member) || inStories.contains(member.number)) continue;
        auto gap = FindGap(view, view.LowerHeight(member));
        if (!gap) gap = FindGap(view, view.UpperHeight(member));
        if (!gap) continue;
        findings.Add(FindingOf(ModelRule::kM27)
                         .Member(member.number)
                         .With("m", std::to_string(member.number))
                         .With("d", RoundedText(*gap)));
    }
}

}  // namespace

std::vector<PlacedMember> NotCounted(const ModelView& view, const MeantStory& story) {
    std::set<std::int32_t> counted(story.members.begin(), story.members.end());
    if (view.HasBlock())
        for (const std::int32_t unnamed : FindUnnamed(view, story))
            counted.insert(unnamed);
    std::vector<PlacedMember> notCounted;
    for (const PlacedMember& member :
         CutMembers(story.floors, view.Members(), view.Engine().zIsVertical))
        if (!counted.contains(member.number)) notCounted.push_back(member);
    return notCounted;
}

void CheckNumbersOfMembers(const ModelView& view, const InputCheck& check,
                           LintFindingList& findings) {
    CheckNamed(view, check, findings);
    CheckReported(view, check, findings);
}

bool SpansItsStories(const ModelView& view, std::int32_t member) {
    const PlacedMember* const placed = view.Find(member);
    std::set<std::int32_t> stories;
    for (const StoryMemberBlock::Entry& entry : view.Block().entries)
        if (entry.member.value == member &&
            static_cast<std::size_t>(entry.story) <= view.Stories().size())
            stories.insert(entry.story);
    return placed == nullptr || stories.size() < 2 || Spans(view, *placed, stories);
}

void CheckMembersOfStories(const ModelView& view, LintFindingList& findings) {
    if (view.HasBlock()) NamedMembers(view, findings).Check();
    for (std::size_t i = 0; i < view.Stories().size(); ++i) {
        const auto number = static_cast<std::int32_t>(i + 1);
        if (view.Stories()[i].members.empty()) {
            CheckStoryWithoutMembers(view, number, findings);
            continue;
        }
        if (view.HasBlock()) CheckUnnamed(view, number, findings);
        CheckCut(view, number, findings);
    }
    CheckLeaning(view, findings);
    CheckGaps(view, findings);
}
