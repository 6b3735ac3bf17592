#include "report/figures_json.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "route2/remarks.h"

namespace {

using Json = nlohmann::ordered_json;

Json Number(double value) {
    return std::isfinite(value) ? Json(value) : Json();
}

Json Number(const Figure& figure) {
    return figure ? Number(*figure) : Json();
}

template <typename Value>
Json OrNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

Json VerdictOf(const std::optional<ToolVerdict>& verdict) {
    return verdict ? Json(TextOf(*verdict)) : Json();
}

Json Pair(const std::array<Figure, 2>& figures) {
    return Json::array({Number(figures[kX]), Number(figures[kZ])});
}

Json OfWorstUpright(const WorstUprightMember& worst) {
    return {{"member", OrNull(worst.member)},
            {"drift_mm", Number(worst.drift)},
            {"angle", Number(worst.angle)},
            {"allowable", Number(worst.allowable)},
            {"code", TextOf(worst.code)}};
}

Json OfToolMax(const ToolMax& max) {
    return {{"member", OrNull(max.member)},
            {"drift_mm", Number(max.drift)},
            {"leaning", OrNull(max.leaning)},
            {"verdict", VerdictOf(max.verdict)}};
}

Json OfDirection(const DirectionFindings& direction) {
    return {{"storyShear_kN", Number(direction.storyShear)},
            {"shearOfStoryMembers_kN", Number(direction.shearOfStoryMembers)},
            {"acrossShear_kN", Number(direction.acrossShear)},
            {"meanDrift_mm", Number(direction.meanDrift)},
            {"meanAngle", Number(direction.meanAngle)},
            {"worstUpright", OfWorstUpright(direction.worstUpright)},
            {"toolMax", OfToolMax(direction.toolMax)},
            {"toolMeanVerdict", VerdictOf(direction.toolMeanVerdict)},
            {"rs", Number(direction.rs)},
            {"rsMean", Number(direction.rsMean)},
            {"stiffnessRatio", Number(direction.stiffnessRatio)},
            {"stiffnessRatioUpright", Number(direction.stiffnessRatioUpright)},
            {"stiffnessRatioTranslational", Number(direction.stiffnessRatioTranslational)},
            {"stiffnessRatioCode", TextOf(direction.stiffnessRatioCode)},
            {"stiffnessRatioTool", VerdictOf(direction.stiffnessRatioTool)},
            {"stiffness_kNpmm", Number(direction.stiffness)},
            {"eccentricity_mm", Number(direction.eccentricity)},
            {"elasticRadius_mm", Number(direction.elasticRadius)},
            {"eccentricityModulus", Number(direction.eccentricityModulus)},
            {"eccentricityCode", TextOf(direction.eccentricityCode)},
            {"eccentricityTool", VerdictOf(direction.eccentricityTool)}};
}

Json OfMember(const MemberFindings& member) {
    return {{"number", member.number},
            {"upright", member.upright},
            {"x_mm", Number(member.x)},
            {"v_mm", Number(member.v)},
            {"axialForce_kN", Number(member.axialForce)},
            {"shear_kN", Pair(member.shear)},
            {"drift_mm", Pair(member.drift)},
            {"stiffness_kNpmm", Pair(member.stiffness)}};
}

Json NumbersOf(const std::vector<MemberFindings>& members) {
    Json numbers = Json::array();
    for (const MemberFindings& member : members)
        numbers.push_back(member.number);
    return numbers;
}

Json OfMembers(const std::vector<MemberFindings>& members) {
    Json list = Json::array();
    for (const MemberFindings& member : members)
        list.push_back(OfMember(member));
    return list;
}

Json OfStory(const StoryFindings& story) {
    return {{"number", story.number},
            {"lowerLevel_mm", Number(story.lowerLevel)},
            {"upperLevel_mm", Number(story.upperLevel)},
            {"height_mm", Number(story.height)},
            {"storyMembers", story.members.size()},
            {"leaning", CountLeaning(story)},
            {"cutNotCounted", NumbersOf(story.cutNotCounted)},
            {"weightAbove_kN", Number(story.weightAbove)},
            {"gravityCenter_mm", Pair(story.gravityCenter)},
            {"rigidityCenter_mm", Pair(story.rigidityCenter)},
            {"torsionalStiffness_kNmm", Number(story.torsionalStiffness)},
            {"allowable",
             {{"angle", Number(story.allowableAngle)},
              {"ratio", Number(story.allowableRatio)},
              {"modulus", Number(story.allowableModulus)}}},
            {"x", OfDirection(story.directions[kX])},
            {"second", OfDirection(story.directions[kZ])},
            {"members", OfMembers(story.members)}};
}

Json OfStories(const std::vector<StoryFindings>& stories) {
    Json list = Json::array();
    for (const StoryFindings& story : stories)
        list.push_back(OfStory(story));
    return list;
}

Json OfRemarks(const std::vector<Remark>& remarks) {
    Json list = Json::array();
    for (const Remark& remark : remarks)
        list.push_back({{"id", remark.id},
                        {"kind", TextOf(remark.kind)},
                        {"stories", remark.stories},
                        {"en", remark.en},
                        {"ja", remark.ja}});
    return list;
}

Json OfModel(const Findings& findings, const RunDescription& run) {
    return {{"path", run.modelPath},
            {"sha256", OrNull(run.modelSha256)},
            {"verticalAxis", findings.axisKnown ? Json(findings.zIsVertical ? "Z" : "Y") : Json()},
            {"hostUnits", findings.inchUnits ? "inch,kip" : "m,kN"},
            {"nodes", findings.nodes.size()},
            {"members", findings.members.size()}};
}

Json OfLoadCases(const Findings& findings) {
    const LoadCaseFindings& cases = findings.loadCases;
    const auto number = [&](std::int32_t read) { return cases.inputRead ? Json(read) : Json(); };
    return {{"dead", number(cases.dead)},
            {"x", number(cases.earthquake[kX])},
            {"second", number(cases.earthquake[kZ])},
            {"secondDirection",
             findings.axisKnown ? Json(std::string(1, findings.SecondDirection())) : Json()}};
}

Json OfVerdict(const Findings& findings) {
    return {{"code", TextOf(findings.verdict.code)},
            {"tool", VerdictOf(findings.verdict.tool)},
            {"errors", CountOf(findings.remarks, RemarkKind::kError)},
            {"warnings", CountOf(findings.remarks, RemarkKind::kWarning)}};
}

}  // namespace

std::string FiguresJson(const Findings& findings, const RunDescription& run) {
    const RunEnd& end = findings.end;
    const Json json = {
        {"format", "quarnel-route2-result"},
        {"version", 1},
        {"tool", run.toolVersion},
        {"made", run.made},
        {"model", OfModel(findings, run)},
        {"input", {{"path", run.inputPath}, {"sha256", OrNull(run.inputSha256)}}},
        {"source", run.fromRecording ? "recording" : "host"},
        {"run",
         {{"complete", end.complete}, {"failure", end.complete ? Json() : Json(end.failure)}}},
        {"loadCases", OfLoadCases(findings)},
        {"verdict", OfVerdict(findings)},
        {"stories", OfStories(findings.stories)},
        {"remarks", OfRemarks(findings.remarks)}};
    return json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}
