#include "sheet/governing.h"

namespace {

// The story whose value is greatest.
template <typename ValueOf>
const StoryFindings* Greatest(const std::vector<StoryFindings>& stories, const ValueOf& valueOf) {
    const StoryFindings* governing = nullptr;
    for (const StoryFindings& story : stories) {
        const Figure value = valueOf(story);
        if (value && (governing == nullptr || *value > *valueOf(*governing))) governing = &story;
    }
    return governing;
}

}  // namespace

const StoryFindings* GoverningAngle(const std::vector<StoryFindings>& stories, std::size_t axis) {
    return Greatest(stories, [axis](const StoryFindings& story) {
        return story.directions[axis].worstUpright.utilisation;
    });
}

const StoryFindings* GoverningRatio(const std::vector<StoryFindings>& stories, std::size_t axis) {
    return Greatest(stories, [axis](const StoryFindings& story) -> Figure {
        const Figure& ratio = story.directions[axis].stiffnessRatio;
        if (!ratio) return std::nullopt;
        return -*ratio;
    });
}

const StoryFindings* GoverningModulus(const std::vector<StoryFindings>& stories, std::size_t axis) {
    return Greatest(stories, [axis](const StoryFindings& story) {
        return story.directions[axis].eccentricityModulus;
    });
}
