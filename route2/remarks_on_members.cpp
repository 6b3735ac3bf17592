// Remarks on single members: what is not counted, what distorts the stiffness or the drift.

#include <algorithm>
#include <cmath>

#include "route2/remark_cause.h"
#include "route2/remark_rules.h"
#include "route2/tolerances.h"

namespace {

constexpr double kFullShare = 0.01;              // beside 1, of the story shear
constexpr double kHalfShare = 0.5;               // of the story shear
constexpr double kNegativeStiffness = 0.001;     // of the sum of the amounts
constexpr double kSmallDrift = 0.1;              // mm
constexpr double kSmallShareOfDrift = 0.05;      // of the mean
constexpr double kGreatShareOfStiffness = 0.05;  // of the sum of the amounts
constexpr double kInfluenceOfLeaning = 0.01;     // on the largest drift and on the mean

BothLanguages AtMember(const Findings& findings, const StoryFindings& story, std::size_t axis,
                       const MemberFindings& member) {
    const std::string number = std::to_string(member.number);
    return DirectionName(findings, story.number, axis) +
           BothLanguages{" member " + number, " 部材 " + number};
}

void OnShareOfTheShear(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R06", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories) {
        for (const std::size_t axis : {kX, kZ}) {
            const DirectionFindings& direction = story.directions[axis];
            if (!direction.storyShear || !direction.shearOfStoryMembers) continue;
            const double all = *direction.storyShear, counted = *direction.shearOfStoryMembers;
            if (std::abs(all) < kNearlyZero || story.members.empty()) continue;
            const double share = counted / all;
            if (std::abs(share - 1.0) <= kFullShare) continue;
            cause.Add(story.number,
                      FillIn("{where}: the story members carry {a} kN / {b} kN = {p}",
                             "{where}: 対象部材の和は層せん断力の {a} kN / {b} kN = {p}",
                             {{"where", DirectionName(findings, story.number, axis)},
                              {"a", Fixed(counted, 1)},
                              {"b", Fixed(all, 1)},
                              {"p", PercentOf(share)}}));
            if (share < kHalfShare) cause.MakeError();
            for (const MemberFindings& member : story.cutNotCounted)
                cause.AddMember(member.number);
        }
    }
    cause.AppendTo(remarks);
}

void OnOtherHeights(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R07", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories) {
        for (const MemberFindings& member : story.members) {
            if (!(std::abs(member.height - story.height) >= kSameLevel)) continue;
            const double ratio = member.height / story.height;
            cause.AddMember(member.number);
            cause.Add(story.number, FillIn("{where} member {m} is {h} mm high (angle times {f})",
                                           "{where} 部材 {m} の高さ {h} mm(変形角 {f} 倍)",
                                           {{"where", StoryName(story.number)},
                                            {"m", std::to_string(member.number)},
                                            {"h", Fixed(member.height, 0)},
                                            {"f", Fixed(ratio * ratio, 3)}}));
        }
    }
    cause.AppendTo(remarks);
}

double SumOfStiffnessAmounts(const StoryFindings& story, std::size_t axis) {
    double sum = 0.0;
    for (const MemberFindings& member : story.members)
        sum += std::abs(member.stiffness[axis].value_or(0.0));
    return sum;
}

void OnStiffness(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause negative("R08", RemarkKind::kWarning);
    RemarkCause hardlyMoving("R09", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories) {
        for (const std::size_t axis : {kX, kZ}) {
            const double sum = SumOfStiffnessAmounts(story, axis);
            const double mean = std::abs(story.directions[axis].meanDrift.value_or(0.0));
            for (const MemberFindings& member : story.members) {
                if (!member.stiffness[axis] || !member.drift[axis]) continue;
                const double stiffness = *member.stiffness[axis];
                const double drift = std::abs(*member.drift[axis]);
                const BothLanguages place = AtMember(findings, story, axis, member);
                if (stiffness < -kNegativeStiffness * sum) {
                    negative.AddMember(member.number);
                    negative.Add(story.number, place + (" (" + Fixed(stiffness, 2) + " kN/mm)"));
                }
                const bool isSmall = drift < kSmallDrift || drift < kSmallShareOfDrift * mean;
                if (isSmall && std::abs(stiffness) > kGreatShareOfStiffness * sum) {
                    hardlyMoving.AddMember(member.number);
                    hardlyMoving.Add(story.number, place + (" (" + Fixed(drift, 3) + " mm, ") +
                                                       PercentOf(std::abs(stiffness) / sum) + ")");
                }
            }
        }
    }
    negative.AppendTo(remarks);
    hardlyMoving.AppendTo(remarks);
}

// What leaning members do to a story's drift in one direction.
struct LeaningInfluence {
    const MemberFindings* largest = nullptr;  // leaning member that moves most
    double largestLeaning = 0.0;              // mm
    double largestUpright = 0.0;
    double sumOfAll = 0.0;
    double sumOfUpright = 0.0;
    int all = 0;
    int upright = 0;

    bool Distorts() const {
        if (all == upright) return false;
        return upright == 0 || largestLeaning > largestUpright * (1.0 + kInfluenceOfLeaning) ||
               std::abs(ShareOfMean()) > kInfluenceOfLeaning;
    }
    double ShareOfMean() const {
        if (upright == 0 || sumOfUpright == 0.0) return 0.0;
        return (sumOfAll / all) / (sumOfUpright / upright) - 1.0;
    }
};

LeaningInfluence InfluenceIn(const StoryFindings& story, std::size_t axis) {
    LeaningInfluence influence;
    for (const MemberFindings& member : story.members) {
        if (!member.drift[axis]) continue;
        const double amount = std::abs(*member.drift[axis]);
        influence.sumOfAll += *member.drift[axis];
        ++influence.all;
        if (member.upright) {
            influence.largestUpright = std::max(influence.largestUpright, amount);
            influence.sumOfUpright += *member.drift[axis];
            ++influence.upright;
        } else if (influence.largest == nullptr || amount > influence.largestLeaning) {
            influence.largest = &member;
            influence.largestLeaning = amount;
        }
    }
    return influence;
}

void OnLeaningMembers(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R10", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories) {
        for (const std::size_t axis : {kX, kZ}) {
            const LeaningInfluence influence = InfluenceIn(story, axis);
            if (!influence.Distorts()) continue;
            const auto& worst = story.directions[axis].worstUpright.member;
            const std::string judged =
                influence.upright > 0 && worst ? std::to_string(*worst) : "—";
            cause.AddMember(influence.largest->number);
            cause.Add(story.number, FillIn("{where}: leaning member {m}, upright {k}, mean {p}",
                                           "{where}: 斜材 {m}、鉛直材 {k}、平均への影響 {p}",
                                           {{"where", DirectionName(findings, story.number, axis)},
                                            {"m", std::to_string(influence.largest->number)},
                                            {"k", judged},
                                            {"p", PercentOf(influence.ShareOfMean())}}));
        }
    }
    cause.AppendTo(remarks);
}

// With Z vertical a member that leans in both plan directions has no right-angled axes.
bool IsOblique(const Findings& findings, const ModelMember& member) {
    if (!findings.zIsVertical || !member.start || !member.end) return false;
    const Vec3& start = findings.nodes[*member.start].point;
    const Vec3& end = findings.nodes[*member.end].point;
    const double dx = std::abs(end.x - start.x), dy = std::abs(end.y - start.y);
    const double length = std::hypot(dx, dy, end.z - start.z);
    constexpr double kParallel = 1e-6;  // of the length
    return dx > kParallel * length && dy > kParallel * length;
}

void OnObliqueMembers(const Findings& findings, std::vector<Remark>& remarks) {
    std::vector<std::int32_t> oblique;
    for (const ModelMember& member : findings.members)
        if (IsOblique(findings, member)) oblique.push_back(member.number);
    if (oblique.empty()) return;
    RemarkCause cause("R11", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories)
        for (const auto* members : {&story.members, &story.cutNotCounted})
            for (const MemberFindings& member : *members)
                if (std::ranges::find(oblique, member.number) != oblique.end()) {
                    cause.AddMember(member.number);
                    cause.Add(story.number, {});
                }
    cause.AppendTo(remarks);
}

void OnUplift(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R17", RemarkKind::kNote);
    for (const StoryFindings& story : findings.stories)
        for (const auto* members : {&story.members, &story.cutNotCounted})
            for (const MemberFindings& member : *members)
                if (member.axialForce.value_or(0.0) < -kNearlyZero) {
                    cause.AddMember(member.number);
                    cause.Add(story.number, {});
                }
    cause.AppendTo(remarks);
}

}  // namespace

void RemarkOnMembers(const Findings& findings, std::vector<Remark>& remarks) {
    OnShareOfTheShear(findings, remarks);
    OnOtherHeights(findings, remarks);
    OnStiffness(findings, remarks);
    OnLeaningMembers(findings, remarks);
    OnObliqueMembers(findings, remarks);
    OnUplift(findings, remarks);
}
