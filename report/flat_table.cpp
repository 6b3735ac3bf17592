#include "report/flat_table.h"

#include <charconv>
#include <cmath>
#include <vector>

#include "platform/utf8_character.h"

namespace {

// A number as plain decimals that read back to it; empty when it is not finite.
std::string Plain(double value) {
    if (!std::isfinite(value)) return {};
    char text[400];  // the smallest numbers have more than 300 zeros behind the point
    return {text, std::to_chars(text, text + sizeof(text), value, std::chars_format::fixed).ptr};
}

std::string Plain(const Figure& figure) {
    return figure ? Plain(*figure) : std::string();
}

std::string Text(const std::optional<std::int32_t>& number) {
    return number ? std::to_string(*number) : std::string();
}

std::string Text(const std::optional<ToolVerdict>& verdict) {
    return verdict ? TextOf(*verdict) : std::string();
}

std::string YesOrNo(const std::optional<bool>& value) {
    if (!value) return {};
    return *value ? "yes" : "no";
}

// What the cells of one row are taken from.
struct Row {
    const Findings& findings;
    const StoryFindings& story;
    std::size_t axis = kX;

    const DirectionFindings& Direction() const { return story.directions[axis]; }
    std::string AxisName() const { return {axis == kX ? 'X' : findings.SecondDirection()}; }
};

std::string NotCounted(const StoryFindings& story) {
    std::string numbers;
    for (const MemberFindings& member : story.cutNotCounted)
        numbers.append(numbers.empty() ? "" : " ").append(std::to_string(member.number));
    return numbers;
}

struct Column {
    const char* heading;
    std::string (*cell)(const Row& row);
};

constexpr Column kColumns[] = {
    {"階 Story", [](const Row& r) { return std::to_string(r.story.number); }},
    {"方向 Direction", [](const Row& r) { return r.AxisName(); }},
    {"荷重ケース Load case",
     [](const Row& r) { return std::to_string(r.findings.loadCases.earthquake[r.axis]); }},
    {"下床レベル Lower level (mm)", [](const Row& r) { return Plain(r.story.lowerLevel); }},
    {"上床レベル Upper level (mm)", [](const Row& r) { return Plain(r.story.upperLevel); }},
    {"階高 Story height (mm)", [](const Row& r) { return Plain(r.story.height); }},
    {"対象部材 Story members", [](const Row& r) { return std::to_string(r.story.members.size()); }},
    {"斜材 Leaning", [](const Row& r) { return std::to_string(CountLeaning(r.story)); }},
    {"対象外 Cut not counted", [](const Row& r) { return NotCounted(r.story); }},
    {"支える重量 Weight above (kN)", [](const Row& r) { return Plain(r.story.weightAbove); }},
    {"重心x Gravity center x (mm)", [](const Row& r) { return Plain(r.story.gravityCenter[kX]); }},
    {"重心v Gravity center v (mm)", [](const Row& r) { return Plain(r.story.gravityCenter[kZ]); }},
    {"剛心x Rigidity center x (mm)",
     [](const Row& r) { return Plain(r.story.rigidityCenter[kX]); }},
    {"剛心v Rigidity center v (mm)",
     [](const Row& r) { return Plain(r.story.rigidityCenter[kZ]); }},
    {"ねじり剛性 Torsional stiffness (kNmm)",
     [](const Row& r) { return Plain(r.story.torsionalStiffness); }},
    {"許容変形角 Allowable angle", [](const Row& r) { return Plain(r.story.allowableAngle); }},
    {"許容剛性率 Allowable ratio", [](const Row& r) { return Plain(r.story.allowableRatio); }},
    {"許容偏心率 Allowable modulus", [](const Row& r) { return Plain(r.story.allowableModulus); }},
    {"層せん断力 Story shear (kN)", [](const Row& r) { return Plain(r.Direction().storyShear); }},
    {"対象部材の和 Shear of story members (kN)",
     [](const Row& r) { return Plain(r.Direction().shearOfStoryMembers); }},
    {"直交方向 Across shear (kN)", [](const Row& r) { return Plain(r.Direction().acrossShear); }},
    {"平均変位 Mean drift (mm)", [](const Row& r) { return Plain(r.Direction().meanDrift); }},
    {"平均変形角 Mean angle", [](const Row& r) { return Plain(r.Direction().meanAngle); }},
    {"最大鉛直材 Worst upright member",
     [](const Row& r) { return Text(r.Direction().worstUpright.member); }},
    {"その変位 Its drift (mm)",
     [](const Row& r) { return Plain(r.Direction().worstUpright.drift); }},
    {"その変形角 Its angle", [](const Row& r) { return Plain(r.Direction().worstUpright.angle); }},
    {"規定値 Code's limit",
     [](const Row& r) { return Plain(r.Direction().worstUpright.allowable); }},
    {"変形角判定 Angle by the code",
     [](const Row& r) -> std::string { return TextOf(r.Direction().worstUpright.code); }},
    {"最大値の部材 Tool's max member",
     [](const Row& r) { return Text(r.Direction().toolMax.member); }},
    {"最大値 Tool's max drift (mm)",
     [](const Row& r) { return Plain(r.Direction().toolMax.drift); }},
    {"最大値は斜材 Tool's max leaning",
     [](const Row& r) { return YesOrNo(r.Direction().toolMax.leaning); }},
    {"最大値判定 Tool's max verdict",
     [](const Row& r) { return Text(r.Direction().toolMax.verdict); }},
    {"平均値判定 Tool's mean verdict",
     [](const Row& r) { return Text(r.Direction().toolMeanVerdict); }},
    {"r_s rs", [](const Row& r) { return Plain(r.Direction().rs); }},
    {"r_s平均 rs mean", [](const Row& r) { return Plain(r.Direction().rsMean); }},
    {"剛性率 Stiffness ratio", [](const Row& r) { return Plain(r.Direction().stiffnessRatio); }},
    {"剛性率(鉛直材) Ratio upright",
     [](const Row& r) { return Plain(r.Direction().stiffnessRatioUpright); }},
    {"剛性率(ΣQ/ΣK) Ratio translational",
     [](const Row& r) { return Plain(r.Direction().stiffnessRatioTranslational); }},
    {"剛性率判定 Ratio by the code",
     [](const Row& r) -> std::string { return TextOf(r.Direction().stiffnessRatioCode); }},
    {"剛性率プログラム Ratio tool's verdict",
     [](const Row& r) { return Text(r.Direction().stiffnessRatioTool); }},
    {"水平剛性 Stiffness (kN/mm)", [](const Row& r) { return Plain(r.Direction().stiffness); }},
    {"偏心距離 Eccentricity (mm)", [](const Row& r) { return Plain(r.Direction().eccentricity); }},
    {"弾力半径 Elastic radius (mm)",
     [](const Row& r) { return Plain(r.Direction().elasticRadius); }},
    {"偏心率 Eccentricity modulus",
     [](const Row& r) { return Plain(r.Direction().eccentricityModulus); }},
    {"偏心率判定 Modulus by the code",
     [](const Row& r) -> std::string { return TextOf(r.Direction().eccentricityCode); }},
    {"偏心率プログラム Modulus tool's verdict",
     [](const Row& r) { return Text(r.Direction().eccentricityTool); }},
};

constexpr const char* kMemberHeadings[] = {
    "階 Story",
    "部材 Member",
    "鉛直材 Upright",
    "x (mm)",
    "v (mm)",
    "軸力 Axial force (kN)",
    "せん断力X Shear X (kN)",
    "せん断力2 Shear second (kN)",
    "変位X Drift X (mm)",
    "変位2 Drift second (mm)",
    "剛性X Stiffness X (kN/mm)",
    "剛性2 Stiffness second (kN/mm)",
};

std::string AsLine(const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
        line.append(i == 0 ? "" : ",").append(cells[i]);
    return line.append("\r\n");
}

}  // namespace

std::string FlatTable(const Findings& findings) {
    std::vector<std::string> headings;
    for (const Column& column : kColumns)
        headings.emplace_back(column.heading);
    std::string table(kByteOrderMark);
    table += AsLine(headings);
    for (std::size_t i = findings.stories.size(); i-- > 0;) {
        const StoryFindings& story = findings.stories[i];
        for (const std::size_t axis : {kX, kZ}) {
            std::vector<std::string> cells;
            for (const Column& column : kColumns)
                cells.push_back(column.cell({findings, story, axis}));
            table += AsLine(cells);
        }
    }
    return table;
}

std::string FlatMemberTable(const Findings& findings) {
    std::string table(kByteOrderMark);
    table += AsLine({std::begin(kMemberHeadings), std::end(kMemberHeadings)});
    for (std::size_t i = findings.stories.size(); i-- > 0;) {
        const StoryFindings& story = findings.stories[i];
        for (const MemberFindings& member : story.members)
            table +=
                AsLine({std::to_string(story.number), std::to_string(member.number),
                        YesOrNo(member.upright), Plain(member.x), Plain(member.v),
                        Plain(member.axialForce), Plain(member.shear[kX]), Plain(member.shear[kZ]),
                        Plain(member.drift[kX]), Plain(member.drift[kZ]),
                        Plain(member.stiffness[kX]), Plain(member.stiffness[kZ])});
    }
    return table;
}
