// Rules on the model itself: what would end a run, or distort it.

#include <algorithm>
#include <cmath>
#include <set>

#include "lint/model_check.h"
#include "lint/model_rules.h"

namespace {

// Cosine of the angle between axes that should be at right angles; what is smaller is a column a
// little out of plumb.
constexpr double kOblique = 1e-3;

void CheckEnds(const ModelView& view, LintFindingList& findings) {
    const AijCodeRoute2& engine = view.Engine();
    const std::size_t withAxes = engine.memberAxisX.size();
    if (withAxes >= engine.memberNumbers.size()) return;
    const auto& [start, end] = engine.memberEndNodes[withAxes];
    const bool hasNodes = FindMemberEnds(start, end, engine.Nodes()).BothFound();
    const std::int32_t member = engine.memberNumbers[withAxes];
    findings.Add(FindingOf(hasNodes ? ModelRule::kM18NoLength : ModelRule::kM18NodeMissing)
                     .With("m", std::to_string(member))
                     .Member(member));
}

std::vector<std::int32_t> Repeated(const std::vector<std::int32_t>& numbers) {
    std::set<std::int32_t> seen;
    std::vector<std::int32_t> repeated;
    for (const std::int32_t number : numbers)
        if (!seen.insert(number).second && std::ranges::find(repeated, number) == repeated.end())
            repeated.push_back(number);
    return repeated;
}

void CheckRepeats(const ModelView& view, LintFindingList& findings) {
    const std::vector<std::int32_t> nodes = Repeated(view.Engine().nodeNumbers);
    if (!nodes.empty())
        findings.Add(FindingOf(ModelRule::kM19Nodes).With("list", NumberList(nodes)));
    const std::vector<std::int32_t> members = Repeated(view.Engine().memberNumbers);
    if (members.empty()) return;
    LintFinding finding = FindingOf(ModelRule::kM19Members).With("list", NumberList(members));
    for (const std::int32_t member : members)
        finding.Member(member);
    findings.Add(finding);
}

bool IsOblique(const AijCodeRoute2& engine, std::size_t position) {
    if (position >= engine.memberAxisX.size()) return false;
    const Vec3& x = engine.memberAxisX[position];
    const double inPlan = std::hypot(x.x, x.y);
    // The reference vector is (-y, -x) over their length.
    return inPlan >= 1e-6 && std::abs(2.0 * x.x * x.y) / inPlan > kOblique;
}

void CheckAxes(const ModelView& view, LintFindingList& findings) {
    const AijCodeRoute2& engine = view.Engine();
    if (!engine.zIsVertical) return;
    std::set<std::int32_t> looked;
    LintFinding finding = FindingOf(ModelRule::kM20);
    const auto look = [&](const PlacedMember& member) {
        if (looked.insert(member.number).second && IsOblique(engine, member.position))
            finding.Member(member.number);
    };
    for (const MeantStory& story : view.Stories()) {
        for (const std::int32_t member : story.members)
            look(*view.Find(member));
        for (const PlacedMember& member : CutMembers(story.floors, view.Members(), true))
            look(member);
    }
    if (finding.members.empty()) return;
    findings.Add(finding.With("list", NumberList(finding.members)));
}

}  // namespace

void CheckSoundnessOfModel(const ModelView& view, LintFindingList& findings) {
    CheckEnds(view, findings);
    CheckRepeats(view, findings);
    CheckAxes(view, findings);
}
