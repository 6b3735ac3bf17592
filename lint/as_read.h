#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "input/input_text.h"

/// Where a run takes something from.
enum class Source { kInput, kModel, kDefault };

/// What the search for story members in the model found.
struct MemberSearch {
    std::size_t found = 0;             ///< story members, each once
    std::size_t columnsAndBraces = 0;  ///< members that are not level
    std::vector<std::int32_t> cutInNoStory;
};

/// What a run takes from an input file, and from the model where the file leaves it to that. Where
/// a run would end early, what stood by then.
struct AsRead {
    /// A load case number and the line that says so; 0: the default.
    struct LoadCase {
        std::int32_t number = 1;
        std::size_t line = 0;
    };
    LoadCase dead;
    std::array<LoadCase, 2> earthquake;  ///< [0] X, [1] Z(or Y)
    std::optional<char> secondAxis;      ///< of the two, the model's own; without a model nothing

    /// mm, ascending, each once. Nothing: they come from a model, and there is none.
    std::optional<std::vector<double>> floorLevels;
    Source floorLevelsFrom = Source::kModel;
    std::size_t floorLevelsLine = 0;

    /// Members by story, from 1; a member that is named twice stands twice. Nothing: they come from
    /// a model, and there is none.
    std::optional<std::map<std::int32_t, std::vector<std::int32_t>>> storyMembers;
    Source storyMembersFrom = Source::kModel;
    std::size_t storyMembersLine = 0;
    std::optional<MemberSearch> search;  ///< when they come from a model

    /// One value for each story. Nothing: their number comes from a model, and there is none.
    std::optional<std::vector<double>> allowAngle;
    std::optional<std::vector<double>> allowRatio;
    std::optional<std::vector<double>> allowModulus;
    std::array<std::vector<std::size_t>, 3> allowLines;  ///< angle, ratio, modulus; empty: defaults

    std::vector<std::int32_t> reportedMembers;  ///< as written
    std::size_t reportedMembersLine = 0;
};

/// What a run reads from a file alone. Nothing when a run does not get beyond the load cases: there
/// is no FIN.
std::optional<AsRead> ReadWithoutModel(const InputText& text);

class ModelView;

/// What a run reads from a file and a model.
AsRead ReadWithModel(const InputText& text, const ModelView& view);
