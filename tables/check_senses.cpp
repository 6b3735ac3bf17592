#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "tables/end_force_signs.h"
#include "tables/statement_checks.h"
#include "tables/vectors.h"

namespace {

// Two forces that differ by less, relative to the larger, hold each other: printed tables are
// rounded.
constexpr double kSameForce = 0.1;

// Members with less than this share of the largest force of a case say nothing.
constexpr double kSmallForce = 1e-3;

// A base shear at a greater angle to the drift than 78 degrees acts across it.
constexpr double kAcrossTheDrift = 0.2;

// One way to read the rows of forces.csv: a sense, and which end a row is of.
struct Reading {
    EndForceSense sense;
    bool areEndsExchanged = false;
};

// The forces on the two ends of a member.
struct EndForces {
    Vec3 start, end;
};

// `vector` as `reading` has it, when `stated` gave it: along the member and across it, with the
// signs of both.
Vec3 Reread(const Vec3& vector, const Vec3& direction, const EndForceSigns& stated,
            const EndForceSigns& reading) {
    const Vec3 axial = Times(direction, Dot(vector, direction));
    return Plus(Times(axial, stated.axial * reading.axial),
                Times(Minus(vector, axial), stated.other * reading.other));
}

// The building's end forces as one way to read the tables has them.
class ReadForces {
public:
    ReadForces(const CheckSubject& subject, const Reading& reading)
        : building_(subject.building), reading_(reading) {}

    Vec3 Force(std::size_t bar, std::size_t end, std::int32_t loadCase) const {
        const std::size_t row = reading_.areEndsExchanged ? 1 - end : end;
        return Reread(building_.Force(bar, row, loadCase), Unit(building_.Direction(bar)),
                      Stated(row), SignsOf(reading_.sense, end));
    }

    EndForces Of(std::size_t bar, std::int32_t loadCase) const {
        return {Force(bar, 0, loadCase), Force(bar, 1, loadCase)};
    }

    // How far the moments and forces on a bar are from holding it, relative; nothing without
    // moments.
    std::optional<double> Unbalance(std::size_t bar, std::int32_t loadCase) const {
        Vec3 sum = Cross(building_.Direction(bar), Force(bar, 1, loadCase));
        double size = LengthOf(sum);
        double moments = 0.0;
        for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) {
            const std::size_t row = reading_.areEndsExchanged ? 1 - end : end;
            const Vec3 moment = Times(building_.Moment(bar, row, loadCase),
                                      Stated(row).other * SignsOf(reading_.sense, end).other);
            sum = Plus(sum, moment);
            moments += LengthOf(moment);
        }
        size += moments;
        if (!(moments > kSmallForce * size)) return std::nullopt;
        return LengthOf(sum) / size;
    }

private:
    EndForceSigns Stated(std::size_t row) const {
        return SignsOf(building_.Tables().statement.endForceSense, row);
    }

    const CheckedBuilding& building_;
    Reading reading_;
};

// Bars whose two end forces do not hold each other under a case, of those that carry something.
struct UnheldBars {
    std::size_t carrying = 0;
    std::vector<std::size_t> bars;

    bool AreMost() const { return 2 * bars.size() > carrying; }
};

UnheldBars FindUnheldBars(const CheckSubject& subject, const ReadForces& forces,
                          std::int32_t loadCase) {
    const std::size_t barCount = subject.building.Tables().members.bars.size();
    double largest = 0.0;
    std::vector<std::size_t> bars;
    for (std::size_t bar = 0; bar < barCount; ++bar) {
        if (!subject.building.HasForces(bar, loadCase)) continue;
        bars.push_back(bar);
        const EndForces both = forces.Of(bar, loadCase);
        largest = std::max({largest, LengthOf(both.start), LengthOf(both.end)});
    }
    UnheldBars unheld;
    for (const std::size_t bar : bars) {
        const EndForces both = forces.Of(bar, loadCase);
        const double size = std::max(LengthOf(both.start), LengthOf(both.end));
        if (!(size > kSmallForce * largest)) continue;
        ++unheld.carrying;
        if (!(LengthOf(Plus(both.start, both.end)) <= kSameForce * size))
            unheld.bars.push_back(bar);
    }
    return unheld;
}

// What the base does to the building under a case.
Vec3 FromBelow(const CheckSubject& subject, const ReadForces& forces, std::int32_t loadCase) {
    Vec3 sum;
    for (const CarryingMember& member : subject.cut.members)
        sum = Plus(sum, forces.Force(member.bar, member.lowerEnd, loadCase));
    return sum;
}

Vec3 DriftOf(const CheckedBuilding& building, const CarryingMember& member, std::int32_t loadCase) {
    return building.InPlan(Minus(building.Displacement(member.upperNode, loadCase),
                                 building.Displacement(member.lowerNode, loadCase)));
}

// Shear times drift, summed over all members that carry: the shear of a member is the force on its
// lower end with the sign turned. kN mm.
double WorkOf(const CheckSubject& subject, const ReadForces& forces, std::int32_t loadCase) {
    double sum = 0.0;
    for (const CarryingMember& member : subject.building.Carrying())
        sum -= Dot(forces.Force(member.bar, member.lowerEnd, loadCase),
                   DriftOf(subject.building, member, loadCase));
    return sum;
}

bool PressesDown(const CheckSubject& subject, const ReadForces& forces) {
    if (!subject.roles.dead || !subject.building.IsLoaded(*subject.roles.dead)) return true;
    return subject.building.HeightOf(FromBelow(subject, forces, *subject.roles.dead)) > 0.0;
}

bool FitsAll(const CheckSubject& subject, const ReadForces& forces) {
    return PressesDown(subject, forces) &&
           std::ranges::all_of(subject.roles.earthquake, [&](std::int32_t loadCase) {
               if (!subject.building.IsLoaded(loadCase)) return true;
               return !FindUnheldBars(subject, forces, loadCase).AreMost() &&
                      WorkOf(subject, forces, loadCase) > 0.0;
           });
}

// Mean of the members' unbalances under the earthquakes; 0 where there are no moments.
double MeanUnbalance(const CheckSubject& subject, const ReadForces& forces) {
    double sum = 0.0;
    std::size_t count = 0;
    for (const std::int32_t loadCase : subject.roles.earthquake)
        for (const CarryingMember& member : subject.building.Carrying())
            if (const auto unbalance = forces.Unbalance(member.bar, loadCase)) {
                sum += *unbalance;
                ++count;
            }
    return count == 0 ? 0.0 : sum / static_cast<double>(count);
}

std::string TextOf(const Reading& reading) {
    return reading.areEndsExchanged
               ? std::string(
                     "exchanging start and end (in forces.csv, or the nodes in members.csv)")
               : std::string("endForceSense ") + NameOf(reading.sense);
}

// The other way to read the tables that would be right, in words.
std::string ReadingThatFits(const CheckSubject& subject) {
    constexpr double kClearlyLess = 0.1;
    const ModelStatement& statement = subject.building.Tables().statement;
    std::vector<Reading> readings;
    for (const EndForceSense sense : {EndForceSense::kOnMember, EndForceSense::kOnNode,
                                      EndForceSense::kSection, EndForceSense::kSectionCompression})
        if (sense != statement.endForceSense && (sense != EndForceSense::kSectionCompression ||
                                                 statement.endForceAxes != EndForceAxes::kGlobal))
            readings.push_back({sense, false});
    readings.push_back({statement.endForceSense, true});

    std::vector<std::pair<double, std::string>> fitting;
    for (const Reading& reading : readings) {
        const ReadForces forces(subject, reading);
        if (FitsAll(subject, forces))
            fitting.emplace_back(MeanUnbalance(subject, forces), TextOf(reading));
    }
    if (fitting.empty()) return "no other sense would fit; is endForceAxes right?";
    const double least = std::ranges::min_element(fitting)->first;
    std::string text;
    for (const auto& [unbalance, reading] : fitting)
        if (unbalance <= least + kClearlyLess) text += (text.empty() ? "" : ", or ") + reading;
    return text + " would fit";
}

std::string NamesOf(const CheckSubject& subject, const std::vector<std::size_t>& bars) {
    std::vector<std::string> names;
    names.reserve(bars.size());
    for (const std::size_t bar : bars)
        names.push_back(subject.building.Tables().members.BarName(bar));
    return ListText(names);
}

std::string NamesOf(const CheckSubject& subject, const std::vector<CarryingMember>& members) {
    std::vector<std::size_t> bars;
    bars.reserve(members.size());
    for (const CarryingMember& member : members)
        bars.push_back(member.bar);
    return NamesOf(subject, bars);
}

std::optional<std::string> UncancelledForces(const CheckSubject& subject, const ReadForces& forces,
                                             std::int32_t loadCase) {
    const UnheldBars unheld = FindUnheldBars(subject, forces, loadCase);
    if (!unheld.AreMost()) return std::nullopt;
    const std::size_t first = unheld.bars.front();
    const EndForces both = forces.Of(first, loadCase);
    return "under case " + std::to_string(loadCase) +
           ", an earthquake, the forces on the two ends "
           "of " +
           std::to_string(unheld.bars.size()) + " of " + std::to_string(unheld.carrying) +
           " members (" + NamesOf(subject, unheld.bars) +
           ") do not cancel, as those of an unloaded member do: member " +
           subject.building.Tables().members.BarName(first) + " has " + VectorText(both.start) +
           " kN at the start and " + VectorText(both.end) +
           " kN at the end along X, Y, Z; the senses of start and end are mixed up";
}

// The dead load's force on the lowest members, if it does not act upwards on them.
std::optional<std::string> WrongDeadLoad(const CheckSubject& subject, const ReadForces& forces) {
    if (!subject.roles.dead) return std::nullopt;
    const double up = subject.building.HeightOf(FromBelow(subject, forces, *subject.roles.dead));
    if (up > 0.0) return std::nullopt;
    return "under case " + std::to_string(*subject.roles.dead) +
           ", the dead load, the members cut above the base (" +
           NamesOf(subject, subject.cut.members) + ") press down with " + FigureText(up) +
           " kN in sum; a positive sum is expected";
}

std::optional<std::string> WrongWork(const CheckSubject& subject, const ReadForces& forces,
                                     std::int32_t loadCase) {
    const double work = WorkOf(subject, forces, loadCase);
    if (work > 0.0) return std::nullopt;
    std::vector<std::size_t> against;
    for (const CarryingMember& member : subject.building.Carrying())
        if (Dot(forces.Force(member.bar, member.lowerEnd, loadCase),
                DriftOf(subject.building, member, loadCase)) >= 0.0)
            against.push_back(member.bar);
    return "under case " + std::to_string(loadCase) +
           ", an earthquake, the shears act against the drifts: their products sum up to " +
           FigureText(work) + " kN mm (members " + NamesOf(subject, against) +
           "); a positive sum is expected";
}

// The lowest members' shear and their mean drift point in about the same direction, unless local
// axes are mixed up.
std::optional<std::string> ShearAcrossDrift(const CheckSubject& subject, const ReadForces& forces,
                                            std::int32_t loadCase) {
    const CheckedBuilding& building = subject.building;
    const Vec3 shear = Times(building.InPlan(FromBelow(subject, forces, loadCase)), -1.0);
    Vec3 drift;
    for (const CarryingMember& member : subject.cut.members)
        drift = Plus(drift, DriftOf(building, member, loadCase));
    drift = Times(drift,
                  1.0 / static_cast<double>(std::max<std::size_t>(1, subject.cut.members.size())));
    const double product = LengthOf(shear) * LengthOf(drift);
    if (!(product > 0.0) || std::abs(Dot(shear, drift)) >= kAcrossTheDrift * product)
        return std::nullopt;
    return "under case " + std::to_string(loadCase) + ", an earthquake, the lowest members (" +
           NamesOf(subject, subject.cut.members) + ") carry a shear of " + VectorText(shear) +
           " kN across their mean drift of " + VectorText(drift) +
           " mm; both are expected to point in about the same direction: local y and z may be "
           "exchanged, or beta turn the other way";
}

// Under the dead load the base pushes up, not sideways.
std::optional<std::string> SidewaysDeadLoad(const CheckSubject& subject, const ReadForces& forces) {
    if (!subject.roles.dead) return std::nullopt;
    const Vec3 force = FromBelow(subject, forces, *subject.roles.dead);
    const double sideways = LengthOf(subject.building.InPlan(force));
    if (!(sideways > std::abs(subject.building.HeightOf(force)))) return std::nullopt;
    return "under case " + std::to_string(*subject.roles.dead) +
           ", the dead load, the base holds the members above it (" +
           NamesOf(subject, subject.cut.members) + ") with " + VectorText(force) +
           " kN along X, Y, Z, more sideways than upwards; an upward force is expected: the "
           "forces are along other axes";
}

class SenseCheck {
public:
    SenseCheck(const CheckSubject& subject, StatementFindings& findings)
        : subject_(subject),
          findings_(findings),
          statement_(subject.building.Tables().statement),
          forces_(subject, {statement_.endForceSense, false}),
          isDeadLoaded_(subject.roles.dead && subject.building.IsLoaded(*subject.roles.dead)) {
        for (const std::int32_t loadCase : subject.roles.earthquake)
            if (subject.building.IsLoaded(loadCase)) loadedEarthquakes_.push_back(loadCase);
    }

    void Check() {
        TellUnchecked();
        if (!CheckAxes()) return;  // along wrong axes, signs say nothing
        CheckCancelling();
        CheckSigns();
    }

private:
    using CaseCheck = std::optional<std::string> (*)(const CheckSubject&, const ReadForces&,
                                                     std::int32_t);

    // What is wrong under the first earthquake case of which it is, and of which others, too.
    std::optional<std::string> FirstWrong(CaseCheck check) const {
        std::optional<std::string> first;
        std::vector<std::string> others;
        for (const std::int32_t loadCase : loadedEarthquakes_) {
            auto text = check(subject_, forces_, loadCase);
            if (text && first) others.push_back(std::to_string(loadCase));
            if (text && !first) first = std::move(text);
        }
        if (first && !others.empty()) *first += "; likewise under case " + ListText(others);
        return first;
    }

    bool CheckAxes() {
        const auto dead = isDeadLoaded_ ? SidewaysDeadLoad(subject_, forces_) : std::nullopt;
        const auto earthquake = FirstWrong(ShearAcrossDrift);
        for (const auto& text : {dead, earthquake})
            if (text) findings_.wrong.push_back(About(statement_, "endForceAxes") + *text);
        if (dead || earthquake) return false;
        if (isDeadLoaded_ || !loadedEarthquakes_.empty())
            findings_.passed.push_back("the lowest members' forces act along the loads");
        return true;
    }

    void CheckCancelling() {
        const auto unheld = FirstWrong(UncancelledForces);
        if (unheld)
            Tell(*unheld);
        else if (!loadedEarthquakes_.empty())
            findings_.passed.push_back("end forces of unloaded members cancel");
    }

    void CheckSigns() {
        const auto dead = isDeadLoaded_ ? WrongDeadLoad(subject_, forces_) : std::nullopt;
        if (dead)
            Tell(*dead);
        else if (isDeadLoaded_)
            findings_.passed.push_back("the dead load presses down");
        const auto work = FirstWrong(WrongWork);
        if (work)
            Tell(*work);
        else if (!loadedEarthquakes_.empty())
            findings_.passed.push_back("shears act with the drifts");
    }

    void Tell(const std::string& text) {
        if (fitting_.empty()) fitting_ = ReadingThatFits(subject_);
        findings_.wrong.push_back(About(statement_, "endForceSense") + text + ": " + fitting_);
    }

    void TellUnchecked() {
        if (!subject_.roles.dead)
            findings_.notChecked.push_back("that the dead load presses down: no case is one");
        if (subject_.roles.earthquake.empty())
            findings_.notChecked.push_back("end forces under earthquakes: no case is one");
        if (subject_.roles.dead && !isDeadLoaded_) TellUnloaded(*subject_.roles.dead);
        for (const std::int32_t loadCase : subject_.roles.earthquake)
            if (std::ranges::find(loadedEarthquakes_, loadCase) == loadedEarthquakes_.end())
                TellUnloaded(loadCase);
    }

    void TellUnloaded(std::int32_t loadCase) {
        findings_.unusual.push_back(std::string(FileNameOf(TableName::kForces)) + ": case " +
                                    std::to_string(loadCase) +
                                    ": all forces are zero, so nothing that depends on them can be "
                                    "checked");
    }

    const CheckSubject& subject_;
    StatementFindings& findings_;
    const ModelStatement& statement_;
    ReadForces forces_;
    std::vector<std::int32_t> loadedEarthquakes_;
    bool isDeadLoaded_ = false;
    std::string fitting_;
};

}  // namespace

void CheckSenses(const CheckSubject& subject, StatementFindings& findings) {
    SenseCheck(subject, findings).Check();
}
