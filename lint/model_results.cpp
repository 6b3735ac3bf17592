// Rules on the results: they ask the host what a run asks it.

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

#include "host/recorded_host.h"
#include "input/line_text.h"
#include "lint/model_check.h"
#include "lint/model_rules.h"
#include "route2/end_forces.h"
#include "route2/form_findings.h"
#include "route2/story_shear.h"
#include "route2/tolerances.h"

namespace {

constexpr double kMoreAcross = 1.0;  // shear across over shear along
constexpr double kSomeAcross = 0.05;
constexpr double kNegativeStiffness = 0.001;     // of the sum of the amounts
constexpr double kSmallDrift = 0.1;              // mm
constexpr double kGreatShareOfStiffness = 0.05;  // of the sum
constexpr double kSameResult = 1e-6;             // relative

std::string Percent(double share) {
    constexpr double kPercent = 100.0;
    constexpr double kShown = 100.0;  // two places
    return RoundedText(std::round(share * kPercent * kShown) / kShown);
}

std::string Direction(const ModelView& view, std::size_t axis) {
    return axis == kX ? "X" : std::string(1, view.Second());
}

InputPlace PlaceOfCase(const ModelView& view, std::size_t axis) {
    return view.Cases().earthquake ? (*view.Cases().earthquake)[axis].place : InputPlace{};
}

bool HasCase(const AijCodeRoute2& engine, std::int32_t number) {
    return std::ranges::find(engine.loadCaseNumbers, number) != engine.loadCaseNumbers.end();
}

// --- Answers that a recording lacks

// "the displacements of node 12 under load case 3", or what a host says itself.
std::string AskedIn(const HostCallError& error) {
    const auto* const missing = dynamic_cast<const MissingAnswerError*>(&error);
    return missing != nullptr ? missing->Asked() : error.what();
}

// Asks what a run asks, in its order, and counts what is not answered.
class AskedAnswers {
public:
    explicit AskedAnswers(const ModelView& view) : view_(view), engine_(view.Engine()) {}

    void Ask() {
        ForEachRecord([this](const StoryMember& record) {
            SixDoubles six{};
            for (const std::int32_t node : {record.lowerNodeNumber, record.upperNodeNumber})
                Try([&] {
                    engine_.hostLink->GetNodeDisplacements(node, record.loadCaseNumber, six);
                });
        });
        for (const StoryInfo& story : engine_.stories)
            for (const PlacedMember& member :
                 CutMembers(story, view_.Members(), engine_.zIsVertical))
                AskForce(member, engine_.deadLoadCaseNumber);
        ForEachRecord([this](const StoryMember& record) {
            // Once for each member: all its records ask the same.
            if (record.loadCaseNumber != engine_.loadCaseNumbers.front()) return;
            for (const std::int32_t loadCase : engine_.earthquakeLoadCaseNumber)
                AskForce(*view_.Find(record.memberNumber), loadCase);
        });
    }

    std::size_t Missing() const { return missing_; }
    const std::string& First() const { return first_; }

private:
    void ForEachRecord(const std::function<void(const StoryMember&)>& ask) const {
        for (const StoryInfo& story : engine_.stories)
            for (const StoryMember& record : story.members)
                ask(record);
    }

    void AskForce(const PlacedMember& member, std::int32_t loadCase) {
        SixDoubles six{};
        Try([&] {
            engine_.hostLink->GetMemberEndForces(
                member.number, LowerEnd(member.startNode, member.lowerNode), loadCase, six);
        });
    }

    void Try(const std::function<void()>& ask) {
        try {
            ask();
        } catch (const HostCallError& error) {
            if (missing_++ == 0) first_ = AskedIn(error);
        }
    }

    const ModelView& view_;
    const AijCodeRoute2& engine_;
    std::size_t missing_ = 0;
    std::string first_;
};

// --- The checks themselves

bool RunChecks(AijCodeRoute2& engine) {
    try {
        engine.SetRelativeStoryDisp();
        engine.SetRsBar();
        engine.SetGravityCenter();
        engine.SetStoryMemberShearForce();
        engine.SetStoryMemberHorizontalStiffness();
        engine.SetRigidityCenter();
        engine.SetEccentricityModulus();
    } catch (const std::out_of_range&) {
        return false;  // a member without axes; M18 says so
    }
    return true;
}

// --- Load cases by what they do

double SumAlong(const StoryFindings& story, std::size_t axis) {
    return story.directions[axis].shearOfStoryMembers.value_or(0.0);
}

// The story whose members carry most in the direction of the case; null: none carries anything.
const StoryFindings* FindMostLoaded(const Findings& findings, std::size_t axis) {
    const StoryFindings* most = nullptr;
    for (const StoryFindings& story : findings.stories) {
        if (story.members.empty() || std::abs(SumAlong(story, axis)) < kNearlyZero) continue;
        if (most == nullptr || std::abs(SumAlong(story, axis)) > std::abs(SumAlong(*most, axis)))
            most = &story;
    }
    return most;
}

void CheckAcross(const ModelView& view, const Findings& findings, std::size_t axis,
                 LintFindingList& list) {
    const StoryFindings* worst = nullptr;
    double worstShare = 0.0;
    for (const StoryFindings& story : findings.stories) {
        const double along = std::abs(SumAlong(story, axis));
        const double across = std::abs(story.directions[axis].acrossShear.value_or(0.0));
        if (along < kNearlyZero || across / along <= worstShare) continue;
        worst = &story;
        worstShare = across / along;
    }
    if (worst == nullptr || worstShare <= kSomeAcross) return;
    const ModelRule rule = worstShare > kMoreAcross ? ModelRule::kM22Mostly : ModelRule::kM22;
    list.Add(FindingOf(rule, PlaceOfCase(view, axis))
                 .Story(worst->number)
                 .With("n", std::to_string(findings.loadCases.earthquake[axis]))
                 .With("d", Direction(view, axis))
                 .With("e", Direction(view, axis == kX ? kZ : kX))
                 .With("s", std::to_string(worst->number))
                 .With("p", Percent(worstShare)));
}

// The shear that the story's members carry under any load case; nothing when it is not answered.
std::optional<double> ShearUnder(const ModelView& view, const StoryFindings& story,
                                 std::int32_t loadCase, std::size_t axis) {
    const AijCodeRoute2& engine = view.Engine();
    const NumberIndex positions(engine.memberNumbers);
    double sum = 0.0;
    for (const MemberFindings& member : story.members) {
        const PlacedMember& placed = *view.Find(member.number);
        SixDoubles force{};
        try {
            engine.hostLink->GetMemberEndForces(
                member.number, LowerEnd(placed.startNode, placed.lowerNode), loadCase, force);
        } catch (const HostCallError&) {
            return std::nullopt;
        }
        sum += ShearOf(force, ShearAxes(engine, positions, member.number), engine.zIsVertical,
                       engine.inchUnits)[axis];
    }
    return sum;
}

// The load case whose results are the opposite.
std::optional<std::int32_t> FindOpposite(const ModelView& view, const StoryFindings& story,
                                         std::size_t axis) {
    const double sum = SumAlong(story, axis);
    for (const std::int32_t loadCase : view.Engine().loadCaseNumbers) {
        const auto other = ShearUnder(view, story, loadCase, axis);
        if (other && std::abs(*other + sum) <= kSameResult * std::abs(sum)) return loadCase;
    }
    return std::nullopt;
}

void CheckSign(const ModelView& view, const Findings& findings, std::size_t axis,
               LintFindingList& list) {
    const StoryFindings* const story = FindMostLoaded(findings, axis);
    const std::string number = std::to_string(findings.loadCases.earthquake[axis]);
    if (story == nullptr) {
        list.Add(FindingOf(ModelRule::kM24NoShear, PlaceOfCase(view, axis))
                     .With("n", number)
                     .With("d", Direction(view, axis)));
        return;
    }
    if (SumAlong(*story, axis) > 0.0) return;
    const auto opposite = FindOpposite(view, *story, axis);
    LintFinding finding = FindingOf(opposite ? ModelRule::kM23WithOpposite : ModelRule::kM23,
                                    PlaceOfCase(view, axis));
    finding.With("n", number).With("d", Direction(view, axis));
    if (opposite) finding.With("m", std::to_string(*opposite));
    list.Add(finding);
}

void CheckDeadLoad(const ModelView& view, const Findings& findings, LintFindingList& list) {
    const AijCodeRoute2& engine = view.Engine();
    if (findings.stories.empty() || !HasCase(engine, engine.deadLoadCaseNumber)) return;
    const auto weight = findings.stories.front().weightAbove;
    if (weight && *weight >= kNearlyZero) return;
    const bool isNegative = weight && *weight <= -kNearlyZero;
    const InputPlace place = view.Cases().dead ? view.Cases().dead->place : InputPlace{};
    list.Add(FindingOf(isNegative ? ModelRule::kM24NegativeWeight : ModelRule::kM24NoWeight, place)
                 .With("n", std::to_string(engine.deadLoadCaseNumber)));
}

// --- Members by what they carry

void CheckShareOfShear(const ModelView& view, const StoryFindings& story, std::size_t axis,
                       LintFindingList& list) {
    const MeantStory& meant = view.Stories()[static_cast<std::size_t>(story.number) - 1];
    const std::vector<PlacedMember> notCounted = NotCounted(view, meant);
    const auto all = story.directions[axis].storyShear;
    if (meant.members.empty() || notCounted.empty() || !all || std::abs(*all) < kNearlyZero) return;
    double sum = 0.0;
    LintFinding finding;
    for (const MemberFindings& member : story.cutNotCounted) {
        const bool isOne =
            std::ranges::find(notCounted, member.number, &PlacedMember::number) != notCounted.end();
        if (!isOne) continue;
        sum += member.shear[axis].value_or(0.0);
        finding.Member(member.number);
    }
    const std::size_t cut =
        CutMembers(meant.floors, view.Members(), view.Engine().zIsVertical).size();
    const bool isMoreThanHalf = 2 * notCounted.size() > cut;
    finding.rule = FindingOf(isMoreThanHalf ? ModelRule::kM11MoreThanHalf : ModelRule::kM11).rule;
    list.Add(finding.Story(story.number)
                 .With("s", std::to_string(story.number))
                 .With("p", Percent(sum / *all))
                 .With("d", Direction(view, axis)));
}

double SumOfAmounts(const StoryFindings& story, std::size_t axis) {
    double sum = 0.0;
    for (const MemberFindings& member : story.members)
        sum += std::abs(member.stiffness[axis].value_or(0.0));
    return sum;
}

void CheckStiffness(const ModelView& view, const StoryFindings& story, std::size_t axis,
                    LintFindingList& list) {
    const double amounts = SumOfAmounts(story, axis);
    const double sum = std::abs(story.directions[axis].stiffness.value_or(0.0));
    for (const MemberFindings& member : story.members) {
        if (!member.stiffness[axis] || !member.drift[axis]) continue;
        const double stiffness = *member.stiffness[axis];
        const double drift = std::abs(*member.drift[axis]);
        const bool isNegative = stiffness < -kNegativeStiffness * amounts;
        const bool hardlyMoves =
            drift < kSmallDrift && std::abs(stiffness) > kGreatShareOfStiffness * sum;
        if (!isNegative && !hardlyMoves) continue;
        list.Add(FindingOf(isNegative ? ModelRule::kM26Negative : ModelRule::kM26HardlyMoves)
                     .Story(story.number)
                     .Member(member.number)
                     .With("m", std::to_string(member.number))
                     .With("s", std::to_string(story.number))
                     .With("d", Direction(view, axis))
                     .With("v", RoundedText(std::round(drift * 1000.0) / 1000.0))
                     .With("p", Percent(std::abs(stiffness) / (isNegative ? amounts : sum))));
    }
}

}  // namespace

void CheckResultsOfModel(ModelView& view, const std::string& modelName,
                         const std::string& recordedFor, LintFindingList& findings) {
    AijCodeRoute2& engine = view.Engine();
    const bool canRun = view.HasStories() && !view.EndedEarly() && engine.storyInfoSet &&
                        !engine.loadCaseNumbers.empty();
    if (!canRun || !engine.hostLink->AreResultsAvailable()) return;
    AskedAnswers answers(view);
    answers.Ask();
    if (answers.Missing() > 0) {
        const bool isKnown = !recordedFor.empty();
        findings.Add(FindingOf(ModelRule::kM25)
                         .With("k", std::to_string(answers.Missing()))
                         .With("model", modelName)
                         .With("input", isKnown ? ", which was recorded for " + recordedFor : "",
                               isKnown ? "(" + recordedFor + " 用の記録)" : "")
                         .With("what", answers.First()));
        return;
    }
    if (!RunChecks(engine)) return;
    FindingsSources sources;
    sources.end.complete = true;
    const Findings figures = FormFindings(engine, sources);
    for (const std::size_t axis : {kX, kZ}) {
        if (!HasCase(engine, engine.earthquakeLoadCaseNumber[axis])) continue;
        CheckAcross(view, figures, axis, findings);
        CheckSign(view, figures, axis, findings);
    }
    CheckDeadLoad(view, figures, findings);
    for (const StoryFindings& story : figures.stories) {
        for (const std::size_t axis : {kX, kZ}) {
            CheckShareOfShear(view, story, axis, findings);
            CheckStiffness(view, story, axis, findings);
        }
    }
}
