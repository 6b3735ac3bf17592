#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/host_queries.h"
#include "input/input_check.h"
#include "input/input_readers.h"
#include "platform/stdio_file.h"
#include "route2/aij_code_route2.h"
#include "route2/placed_members.h"

/// A story as it was meant: between its floors, with the members that the file names for it, as far
/// as the model has them, or else with those that run from floor to floor.
struct MeantStory {
    StoryInfo floors;
    std::vector<std::int32_t> members;  ///< numbers; one that is named twice stands twice
};

/// A model as a run reads it, up to its stories. Nothing is written; no result is asked for.
class ModelView {
public:
    /// Borrows `host`. Reads the input file as a run does.
    ModelView(HostQueries& host, const InputCheck& check, const std::string& inputPath);

    /// The engine as a run leaves it after its stories, or where it ended early.
    const AijCodeRoute2& Engine() const { return engine_; }
    AijCodeRoute2& Engine() { return engine_; }

    /// The run got as far as its stories, and every member has its nodes.
    bool HasStories() const { return hasStories_; }

    /// The run ended before it had its stories and their members.
    bool EndedEarly() const { return endedEarly_; }

    /// The run ended at the load cases, for want of FIN, or while it looked for the floors: no
    /// reader behind that has read anything.
    bool EndedBeforeStories() const { return endedBeforeStories_; }

    /// The file names the story members.
    bool HasBlock() const { return block_.line != 0; }

    /// Load cases, levels and members as the file has them, with their places.
    const LoadCaseNumbers& Cases() const { return cases_; }
    const FloorLevelList& Levels() const { return levels_; }
    const StoryMemberBlock& Block() const { return block_; }
    const ReportedMemberList& Reported() const { return reported_; }

    const std::vector<MeantStory>& Stories() const { return stories_; }
    const std::vector<PlacedMember>& Members() const { return placed_; }

    /// Of a number that stands twice, the first; null when it is not in the model.
    const PlacedMember* Find(std::int32_t member) const;

    double LowerHeight(const PlacedMember& member) const;
    double UpperHeight(const PlacedMember& member) const;
    double HeightOf(const PlacedMember& member) const {
        return UpperHeight(member) - LowerHeight(member);
    }
    bool IsLevel(const PlacedMember& member) const;

    /// Name of the second plan direction.
    char Second() const { return engine_.zIsVertical ? 'Y' : 'Z'; }

private:
    void ReadInput(const InputCheck& check);
    void RunSteps();
    void FormStories();

    StdioFile nowhere_;
    AijCodeRoute2 engine_;
    bool hasStories_ = false;
    bool endedBeforeStories_ = false;
    bool endedEarly_ = false;
    LoadCaseNumbers cases_;
    FloorLevelList levels_;
    StoryMemberBlock block_;
    ReportedMemberList reported_;
    std::vector<PlacedMember> placed_;
    std::map<std::int32_t, std::size_t> positions_;  ///< in placed_, by number
    std::vector<MeantStory> stories_;
};
