#include <algorithm>
#include <cmath>

#include "tables/statement_checks.h"
#include "tables/vectors.h"

namespace {

constexpr double kGreatestDifference = 0.01;  // of the reactions

// What the supports below the cutting plane do to the building, kN.
Vec3 SumOfReactions(const CheckSubject& subject, const std::map<std::size_t, Vec3>& reactions) {
    const CheckedBuilding& building = subject.building;
    Vec3 sum;
    for (const auto& [node, force] : reactions)
        if (building.HeightOf(building.Point(node)) < subject.cut.level)
            sum = Plus(sum, building.InKilonewtons(force));
    return sum;
}

std::string MembersOf(const CheckSubject& subject) {
    std::vector<std::string> names;
    for (const CarryingMember& member : subject.cut.members)
        names.push_back(subject.building.Tables().members.BarName(member.bar));
    return ListText(names);
}

// False when the two differ.
bool CheckCase(const CheckSubject& subject, const std::map<std::size_t, Vec3>& reactions,
               std::int32_t loadCase, StatementFindings& findings) {
    const CheckedBuilding& building = subject.building;
    const Vec3 supports = building.InPlan(SumOfReactions(subject, reactions));
    const Vec3 members = building.InPlan(ForceFromBelow(building, subject.cut, loadCase));
    const double difference = LengthOf(Minus(members, supports));
    if (difference <= kGreatestDifference * LengthOf(supports)) return true;
    const bool isTurned =
        LengthOf(Plus(members, supports)) <= kGreatestDifference * LengthOf(supports);
    findings.wrong.push_back(
        std::string(FileNameOf(TableName::kReactions)) + ": under case " +
        std::to_string(loadCase) + ", an earthquake, the supports hold the building with " +
        VectorText(supports) + " kN in plan, and the members cut above the base (" +
        MembersOf(subject) + ") get " + VectorText(members) + " kN from below, " +
        FigureText(100.0 * difference / LengthOf(supports)) + " % apart; at most 1 % is expected" +
        (isTurned ? ": one of both has the other sense" : ""));
    return false;
}

}  // namespace

void CheckReactions(const CheckSubject& subject, StatementFindings& findings) {
    const Reactions& reactions = subject.building.Tables().reactions;
    std::size_t checked = 0;
    bool areRight = true;
    for (const std::int32_t loadCase : subject.roles.earthquake) {
        const auto found = reactions.find(loadCase);
        if (found == reactions.end()) continue;
        ++checked;
        areRight = CheckCase(subject, found->second, loadCase, findings) && areRight;
    }
    if (checked == 0)
        findings.notChecked.push_back(
            "story shears against reactions: no reactions of an earthquake case");
    else if (areRight)
        findings.passed.push_back("base shears equal the reactions");
}
