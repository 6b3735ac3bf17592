// Rules on the floor levels against the model.

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

#include "input/line_text.h"
#include "lint/beam_levels.h"
#include "lint/model_check.h"
#include "lint/model_rules.h"
#include "route2/tolerances.h"

namespace {

constexpr double kLowStory = 2100.0;  // mm

bool IsSame(double a, double b) {
    return std::abs(a - b) < kSameLevel;
}

std::string LineOf(const std::vector<double>& levels) {
    std::string line = "FloorLevel,";
    for (const double level : levels)
        line += RoundedText(level) + ',';
    return line;
}

// --- Levels of the file

struct Neighbours {
    std::optional<double> below;
    std::optional<double> above;
    bool hasNodeThere = false;
};

Neighbours FindNodesNear(double level, const AijCodeRoute2& engine) {
    Neighbours near;
    for (const Vec3& point : engine.nodeCoords) {
        const double height = Vertical(point, engine.zIsVertical);
        if (IsSame(height, level)) near.hasNodeThere = true;
        if (height < level && (!near.below || height > *near.below)) near.below = height;
        if (height > level && (!near.above || height < *near.above)) near.above = height;
    }
    return near;
}

std::string TextOf(const Neighbours& near) {
    std::string text;
    if (near.below) text += RoundedText(*near.below);
    if (near.below && near.above) text += ", ";
    if (near.above) text += RoundedText(*near.above);
    return text.empty() ? "-" : text;
}

void CheckNodesAtLevels(const ModelView& view, LintFindingList& findings) {
    for (const Placed<double>& level : view.Levels().levels) {
        const Neighbours near = FindNodesNear(level.value, view.Engine());
        if (near.hasNodeThere || level.place.length == 0) continue;
        findings.Add(FindingOf(ModelRule::kM04, level.place)
                         .With("l", RoundedText(level.value))
                         .With("near", TextOf(near)));
    }
}

bool IsAmong(const std::vector<double>& levels, double level) {
    return std::ranges::any_of(levels, [level](double other) { return IsSame(other, level); });
}

void CheckMissingLevels(const ModelView& view, const std::vector<double>& levels,
                        LintFindingList& findings) {
    const double base = view.Engine().baseLevel;
    if (!IsAmong(levels, base))
        findings.Add(FindingOf(ModelRule::kM05Base).With("l", RoundedText(base)));
    for (const BeamLevel& beams : FindBeamLevels(view)) {
        const bool isBase = IsSame(beams.level, base);
        if (beams.members >= kLeastMembersOfAFloor && !isBase && !IsAmong(levels, beams.level))
            findings.Add(FindingOf(ModelRule::kM05).With("l", RoundedText(beams.level)));
    }
}

std::optional<double> FindLowestSupport(const AijCodeRoute2& engine) {
    std::optional<double> lowest;
    for (std::size_t i = 0; i < engine.nodeSupported.size(); ++i) {
        const double height = Vertical(engine.nodeCoords[i], engine.zIsVertical);
        if (engine.nodeSupported[i] && (!lowest || height < *lowest)) lowest = height;
    }
    return lowest;
}

void CheckLowestLevel(const ModelView& view, const std::vector<double>& levels,
                      LintFindingList& findings) {
    const auto support = FindLowestSupport(view.Engine());
    const bool isTold = !IsAmong(levels, view.Engine().baseLevel);
    if (!support || isTold || IsSame(levels.front(), *support)) return;
    findings.Add(FindingOf(ModelRule::kM08LowestLevel)
                     .With("l", RoundedText(levels.front()))
                     .With("b", RoundedText(*support)));
}

// --- Derived levels

void CheckFirstNode(const ModelView& view, LintFindingList& findings) {
    const AijCodeRoute2& engine = view.Engine();
    if (engine.nodeCoords.empty() || engine.nodeSupported.front()) return;
    const auto support = FindLowestSupport(engine);
    const double first = Vertical(engine.nodeCoords.front(), engine.zIsVertical);
    if (support && first >= *support - kSameLevel) return;
    findings.Add(FindingOf(ModelRule::kM08FirstNode)
                     .With("l", RoundedText(first))
                     .With("n", std::to_string(engine.nodeNumbers.front()))
                     .Write(LineOf(LevelsOfFloors(view))));
}

// Levels that are two beams of one floor are told; the others are left to look at by themselves.
void CheckTwinLevels(const ModelView& view, LintFindingList& findings) {
    const std::vector<double>& levels = view.Engine().floorLevels;
    for (std::size_t i = 1; i < levels.size(); ++i) {
        const double distance = levels[i] - levels[i - 1];
        if (distance >= kOneFloor) continue;
        findings.Add(FindingOf(ModelRule::kM06)
                         .Story(static_cast<std::int32_t>(i))
                         .With("a", RoundedText(levels[i - 1]))
                         .With("b", RoundedText(levels[i]))
                         .With("d", RoundedText(distance))
                         .Write(LineOf(LevelsOfFloors(view))));
    }
}

BeamLevel BeamsAt(const std::vector<BeamLevel>& all, double level) {
    for (const BeamLevel& beams : all)
        if (IsSame(beams.level, level)) return beams;
    return {level, 0, {}};
}

// Levels, by index, with too few beams, or too small beams, for a floor; and of the two floors of a
// low story the one with fewer members. The base is a floor whatever lies there.
std::set<std::size_t> FindLandings(const ModelView& view) {
    const std::vector<double>& levels = view.Engine().floorLevels;
    const std::vector<BeamLevel> all = FindBeamLevels(view);
    std::vector<BeamLevel> beams;
    beams.reserve(levels.size());
    for (const double level : levels)
        beams.push_back(BeamsAt(all, level));
    std::set<std::size_t> landings;
    for (std::size_t i = 1; i < levels.size(); ++i) {
        if (!CarriesAFloor(beams[i], view)) landings.insert(i);
        if (levels[i] - levels[i - 1] >= kLowStory) continue;
        const bool isUpperWeaker = i == 1 || beams[i].members < beams[i - 1].members;
        landings.insert(isUpperWeaker ? i : i - 1);
    }
    return landings;
}

bool IsTwin(const std::vector<double>& levels, std::size_t i) {
    const bool isNearBelow = levels[i] - levels[i - 1] < kOneFloor;
    return isNearBelow || (i + 1 < levels.size() && levels[i + 1] - levels[i] < kOneFloor);
}

void CheckLandings(const ModelView& view, LintFindingList& findings) {
    const std::vector<double>& levels = view.Engine().floorLevels;
    for (const std::size_t i : FindLandings(view)) {
        if (IsTwin(levels, i)) continue;
        findings.Add(FindingOf(ModelRule::kM07)
                         .Story(static_cast<std::int32_t>(i))
                         .With("l", RoundedText(levels[i]))
                         .Write(LineOf(LevelsOfFloors(view))));
    }
}

}  // namespace

void CheckLevelsOfModel(const ModelView& view, const InputCheck& check, LintFindingList& findings) {
    if (!view.Levels().levels.empty()) {
        // Another finding says why levels that are not sound do not fit.
        if (!check.meantLevels.isSound) return;
        CheckNodesAtLevels(view, findings);
        CheckMissingLevels(view, check.meantLevels.levels, findings);
        CheckLowestLevel(view, check.meantLevels.levels, findings);
        return;
    }
    CheckFirstNode(view, findings);
    if (check.meantLevels.isUnreadable) return;
    CheckTwinLevels(view, findings);
    CheckLandings(view, findings);
}
