#include "lint/model_view.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include "platform/null_device.h"
#include "route2/floor_levels.h"
#include "route2/story_members.h"
#include "route2/tolerances.h"

ModelView::ModelView(HostQueries& host, const InputCheck& check, const std::string& inputPath)
    : nowhere_(OpenNullDevice()), engine_(&host, nullptr) {
    engine_.logFile = nowhere_.get();
    engine_.dataFilePath = inputPath;
    engine_.zIsVertical = host.IsZUp();
    ReadInput(check);
    RunSteps();
    placed_ = PlaceMembers(engine_);
    for (std::size_t i = 0; i < placed_.size(); ++i)
        positions_.try_emplace(placed_[i].number, i);
    FormStories();
}

// Without FIN the readers would take the last line again and again: each line is looked at once.
void ModelView::ReadInput(const InputCheck& check) {
    const std::string text = check.hasFin ? check.text.Text() : check.text.Text() + "\nFIN\n";
    const auto open = [&text] { return InputFile::OfText(text); };
    InputFile file = open();
    cases_ = ReadLoadCaseNumbers(file);
    file = open();
    levels_ = ReadFloorLevels(file);
    file = open();
    block_ = ReadStoryMembers(file, std::numeric_limits<std::int32_t>::max());
    file = open();
    reported_ = ReadReportedMembers(file);
}

// A run ends where a step throws; what stands by then is looked at.
void ModelView::RunSteps() {
    const bool getsBeyondLoadCases = engine_.SetLoadCaseNumbersWithDataFile();
    // Else the stories are those of the model: a corrected file is made from them.
    if (!getsBeyondLoadCases) engine_.dataFilePath.clear();
    engine_.SetLoadInfo();
    engine_.SetNodeInfo();
    engine_.SetMemberInfo();
    endedBeforeStories_ = true;
    try {
        engine_.SetFloorInfo();
        endedBeforeStories_ = !getsBeyondLoadCases;
        engine_.SetStoryInfo();
    } catch (const std::out_of_range&) {
        endedEarly_ = true;  // a node is missing
    } catch (const HostCallError&) {
        endedEarly_ = true;  // a member is not in the model
    }
}

const PlacedMember* ModelView::Find(std::int32_t member) const {
    const auto found = positions_.find(member);
    return found == positions_.end() ? nullptr : &placed_[found->second];
}

double ModelView::LowerHeight(const PlacedMember& member) const {
    return Vertical(member.lower, engine_.zIsVertical);
}

double ModelView::UpperHeight(const PlacedMember& member) const {
    return Vertical(member.upper, engine_.zIsVertical);
}

bool ModelView::IsLevel(const PlacedMember& member) const {
    return std::abs(HeightOf(member)) < kSameLevel;
}

void ModelView::FormStories() {
    const bool isWhole = placed_.size() == engine_.memberNumbers.size();
    hasStories_ = isWhole && !engine_.stories.empty();
    if (!hasStories_) return;
    for (const StoryInfo& floors : engine_.stories)
        stories_.push_back({floors, {}});
    if (HasBlock()) {
        for (const StoryMemberBlock::Entry& entry : block_.entries) {
            const bool isThere = static_cast<std::size_t>(entry.story) <= stories_.size() &&
                                 Find(entry.member.value) != nullptr;
            if (isThere)
                stories_[static_cast<std::size_t>(entry.story) - 1].members.push_back(
                    entry.member.value);
        }
        return;
    }
    for (MeantStory& story : stories_)
        for (const PlacedMember& member : placed_)
            if (RunsBetweenFloors(story.floors, LowerHeight(member), UpperHeight(member)))
                story.members.push_back(member.number);
}
