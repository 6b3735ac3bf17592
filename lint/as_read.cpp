#include "lint/as_read.h"

#include <limits>
#include <set>

#include "input/input_readers.h"
#include "lint/model_view.h"
#include "route2/floor_levels.h"

namespace {

// The defaults of every story.
constexpr double kAngle = 0.005;
constexpr double kRatio = 0.6;
constexpr double kModulus = 0.15;

constexpr std::size_t kAnyNumberOfStories = std::numeric_limits<std::int32_t>::max();

AsRead::LoadCase LoadCaseOf(const Placed<std::int32_t>& number) {
    return {number.value, number.place.line};
}

void TakeFloorLevels(const InputText& text, AsRead& asRead) {
    InputFile file = InputFile::OfText(text.Text());
    const FloorLevelList read = ReadFloorLevels(file);
    if (read.levels.empty()) return;
    std::vector<double> levels;
    for (const Placed<double>& level : read.levels)
        levels.push_back(level.value);
    asRead.floorLevels = SortedDistinctLevels(std::move(levels));
    asRead.floorLevelsFrom = Source::kInput;
    asRead.floorLevelsLine = read.levels.front().place.line;
}

std::optional<std::size_t> StoryCount(const AsRead& asRead) {
    if (!asRead.floorLevels) return std::nullopt;
    return asRead.floorLevels->size() - 1;
}

void TakeStoryMembers(const InputText& text, AsRead& asRead) {
    const auto storyCount = StoryCount(asRead);
    InputFile file = InputFile::OfText(text.Text());
    const StoryMemberBlock read = ReadStoryMembers(file, storyCount.value_or(kAnyNumberOfStories));
    if (read.line == 0) return;
    asRead.storyMembersFrom = Source::kInput;
    asRead.storyMembersLine = read.line;
    asRead.storyMembers.emplace();
    for (std::size_t story = 1; story <= storyCount.value_or(0); ++story)
        (*asRead.storyMembers)[static_cast<std::int32_t>(story)];
    for (const StoryMemberBlock::Entry& entry : read.entries)
        (*asRead.storyMembers)[entry.story].push_back(entry.member.value);
}

std::optional<std::vector<double>>& ValuesOf(Keyword keyword, AsRead& asRead) {
    if (keyword == Keyword::kAllowStoryDeformAngle) return asRead.allowAngle;
    return keyword == Keyword::kAllowStoryStiffRatio ? asRead.allowRatio : asRead.allowModulus;
}

std::vector<std::size_t>& LinesOf(Keyword keyword, AsRead& asRead) {
    if (keyword == Keyword::kAllowStoryDeformAngle) return asRead.allowLines[0];
    return asRead.allowLines[keyword == Keyword::kAllowStoryStiffRatio ? 1 : 2];
}

void TakeAllowables(const InputText& text, std::optional<std::size_t> storyCount, AsRead& asRead) {
    if (storyCount) {
        asRead.allowAngle.emplace(*storyCount, kAngle);
        asRead.allowRatio.emplace(*storyCount, kRatio);
        asRead.allowModulus.emplace(*storyCount, kModulus);
    }
    InputFile file = InputFile::OfText(text.Text());
    const AllowableValueList read =
        ReadAllowableValues(file, storyCount.value_or(kAnyNumberOfStories));
    for (const AllowableValueList::Entry& entry : read.entries) {
        LinesOf(entry.keyword, asRead).push_back(entry.value.place.line);
        if (!storyCount) continue;
        const auto story = static_cast<std::size_t>(entry.story) - 1;
        (*ValuesOf(entry.keyword, asRead))[story] = entry.value.value;
    }
}

}  // namespace

bool TakeLoadCases(const InputText& text, AsRead& asRead) {
    InputFile file = InputFile::OfText(text.Text());
    const LoadCaseNumbers read = ReadLoadCaseNumbers(file);
    if (read.dead) asRead.dead = LoadCaseOf(*read.dead);
    if (read.earthquake)
        asRead.earthquake = {LoadCaseOf((*read.earthquake)[0]), LoadCaseOf((*read.earthquake)[1])};
    return EndsWell(read.end);
}

void TakeReportedMembers(const InputText& text, AsRead& asRead) {
    InputFile file = InputFile::OfText(text.Text());
    for (const Placed<std::int32_t>& member : ReadReportedMembers(file).members) {
        asRead.reportedMembers.push_back(member.value);
        asRead.reportedMembersLine = member.place.line;
    }
}

std::optional<AsRead> ReadWithoutModel(const InputText& text) {
    AsRead asRead;
    if (!TakeLoadCases(text, asRead)) return std::nullopt;
    TakeFloorLevels(text, asRead);
    TakeStoryMembers(text, asRead);
    TakeAllowables(text, StoryCount(asRead), asRead);
    TakeReportedMembers(text, asRead);
    return asRead;
}

namespace {

// A member has one record for each load case; a run that ended early may have left fewer.
std::vector<std::int32_t> MembersOf(const StoryInfo& story, std::size_t loadCases) {
    std::vector<std::int32_t> members;
    for (std::size_t i = 0; i < story.members.size(); i += loadCases)
        members.push_back(story.members[i].memberNumber);
    return members;
}

std::size_t MembersTaken(const AijCodeRoute2& engine) {
    std::size_t taken = 0;
    for (const StoryInfo& story : engine.stories)
        taken += MembersOf(story, engine.loadCaseNumbers.size()).size();
    return taken;
}

// Whether a run comes as far as the members to report: they are read behind the story members.
bool ReachesReportedMembers(const InputText& text, const ModelView& view) {
    const AijCodeRoute2& engine = view.Engine();
    if (view.EndedBeforeStories()) return false;
    if (!view.HasBlock() || engine.loadCaseNumbers.empty()) return true;
    InputFile file = InputFile::OfText(text.Text());
    const StoryMemberBlock block = ReadStoryMembers(file, engine.stories.size());
    return MembersTaken(engine) == block.entries.size();
}

MemberSearch SearchOf(const ModelView& view) {
    MemberSearch search;
    std::set<std::int32_t> inStories;
    for (const MeantStory& story : view.Stories())
        inStories.insert(story.members.begin(), story.members.end());
    search.found = inStories.size();
    std::set<std::int32_t> cut;
    for (const MeantStory& story : view.Stories())
        for (const PlacedMember& member :
             CutMembers(story.floors, view.Members(), view.Engine().zIsVertical))
            cut.insert(member.number);
    for (const PlacedMember& member : view.Members()) {
        if (!view.IsLevel(member)) ++search.columnsAndBraces;
        if (cut.contains(member.number) && !inStories.contains(member.number))
            search.cutInNoStory.push_back(member.number);
    }
    return search;
}

}  // namespace

AsRead ReadWithModel(const InputText& text, const ModelView& view) {
    const AijCodeRoute2& engine = view.Engine();
    AsRead asRead = ReadWithoutModel(text).value_or(AsRead{});
    asRead.secondAxis = view.Second();
    // Sorted once only: a level that is not a number has no place of its own.
    asRead.floorLevels =
        view.EndedBeforeStories() ? SortedDistinctLevels(engine.floorLevels) : engine.floorLevels;
    asRead.storyMembers.emplace();
    asRead.allowLines = {};
    TakeAllowables(text, engine.stories.size(), asRead);
    for (std::size_t i = 0; i < engine.stories.size(); ++i) {
        const StoryInfo& story = engine.stories[i];
        (*asRead.storyMembers)[static_cast<std::int32_t>(i + 1)] =
            MembersOf(story, engine.loadCaseNumbers.size());
        (*asRead.allowAngle)[i] = story.allowDeformAngle;
        (*asRead.allowRatio)[i] = story.allowStiffRatio;
        (*asRead.allowModulus)[i] = story.allowEccentricityModulus;
    }
    if (!view.HasBlock() && view.HasStories()) asRead.search = SearchOf(view);
    if (!ReachesReportedMembers(text, view)) {
        asRead.reportedMembers.clear();
        asRead.allowLines = {};
    }
    return asRead;
}
