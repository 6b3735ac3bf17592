// S3: story deformation angles.

#include <algorithm>
#include <map>

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/governing.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/profile.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"
#include "sheet/verdict_notes.h"

namespace {

std::string VerdictOf(const StoryFindings& story, std::size_t axis, const std::string& allowable,
                      NoteList& notes) {
    const DirectionFindings& direction = story.directions[axis];
    const std::string marks = notes.Marks(AngleNotes(story, axis), story.number,
                                          {AllowableAngleText(story.allowableAngle), allowable});
    return VerdictCell({"worstUpright.code", story.number, axis, {}}, direction.worstUpright.code,
                       "toolMax.verdict", direction.toolMax.verdict, marks);
}

// The tool's largest angle with its member.
std::string ToolMaxCell(const StoryFindings& story, std::size_t axis, const std::string& allowable,
                        NoteList& notes) {
    const ToolMax& max = story.directions[axis].toolMax;
    const std::string marks = notes.Marks(ToolMaxNotes(story, axis), story.number,
                                          {AllowableAngleText(story.allowableAngle), allowable});
    std::string html = HtmlText(AngleText(max.drift, story.height)) + " ";
    if (max.member) {
        html += "<small>(<span" + FigureAttributes({"toolMax.member", story.number, axis, {}}) +
                ">" + IdentifierText(max.member) + "</span>";
        if (max.leaning.value_or(false)) html += Concat({" ", InOne(Text("leaning mark"))});
        html += ")</small>";
    }
    return Cell(html + marks, marks.empty() ? "" : "differs");
}

std::string AngleRow(const Sheet& sheet, const StoryFindings& story, std::size_t axis, bool governs,
                     NoteList& notes) {
    const DirectionFindings& direction = story.directions[axis];
    const WorstUprightMember& worst = direction.worstUpright;
    const AngleBesideLimit angle = AngleBesideLimitText(worst, story.height);
    const auto place = [&](std::string_view key) {
        return FigurePlace{key, story.number, axis, {}};
    };
    return StoryHead(sheet.names.StoryInTable(story.number)) +
           FigureCell({"height_mm", story.number, {}, {}}, LevelText(story.height)) +
           FigureCell(place("worstUpright.drift_mm"), NumberText(worst.drift, kDriftFormat)) +
           FigureCell(place("worstUpright.member"), IdentifierText(worst.member)) +
           FigureCell(place("worstUpright.angle"), angle.angle, governs ? "governs" : "") +
           FigureCell(place("worstUpright.allowable"), angle.allowable) +
           VerdictOf(story, axis, angle.allowable, notes) +
           FigureCell(place("meanDrift_mm"), NumberText(direction.meanDrift, kDriftFormat)) +
           FigureCell(place("meanAngle"), AngleText(direction.meanDrift, story.height)) +
           FigureCell(place("toolMeanVerdict"), TextInSheet(direction.toolMeanVerdict), "c") +
           ToolMaxCell(story, axis, angle.allowable, notes) +
           FigureCell(place("maxOverMean"), NumberText(direction.maxOverMean, kMaxOverMeanFormat));
}

FilledWords Caption(const Sheet& sheet, std::size_t axis) {
    return Filled(Text("T3"),
                  {{"d", sheet.names.Direction(axis)},
                   {"case", sheet.names.LoadCase(sheet.findings.loadCases.earthquake[axis])}});
}

std::string AngleTable(const Sheet& sheet, std::size_t axis) {
    NoteList notes(sheet);
    Table table(axis == kX ? "T3x" : "T3second", Caption(sheet, axis),
                {11, 13, 14, 13, 15, 13.5, 22, 14, 14.5, 13.5, 22, 12.5},
                Concat({"angles", KeptTogether(sheet.StoryCount())}));
    const std::string heading = axis == kX ? notes.Mark(VerdictNote::kMaxXNotJudged) : "";
    table.HeadRow({{Text("story")},
                   {Text("height h"), "mm"},
                   {Text("largest drift"), "mm"},
                   {Text("member")},
                   {Text("largest angle")},
                   {Text("allowable")},
                   {Text("verdict, tool max"), {}, 1, 1, heading},
                   {Text("mean drift"), "mm"},
                   {Text("mean angle")},
                   {Text("tool, mean")},
                   {Text("tool, max")},
                   {Text("max/mean")}});
    const auto& stories = sheet.findings.stories;
    const StoryFindings* const governing = GoverningAngle(stories, axis);
    for (std::size_t i = stories.size(); i-- > 0;)
        table.Row(AngleRow(sheet, stories[i], axis, &stories[i] == governing, notes));
    return table.TakeHtml() + notes.Explained();
}

// --- What is cut and not counted -----------------------------------------------------------------

struct NotCounted {
    const MemberFindings* member = nullptr;
    std::vector<int> stories;
};

// Upright ones, each once, in the order of the lowest story that they cross.
std::vector<NotCounted> UprightNotCounted(const Findings& findings) {
    std::vector<NotCounted> list;
    std::map<std::int32_t, std::size_t> places;
    for (const StoryFindings& story : findings.stories)
        for (const MemberFindings& member : story.cutNotCounted) {
            if (!member.upright) continue;
            const auto [place, isNew] = places.try_emplace(member.number, list.size());
            if (isNew) list.push_back({&member, {}});
            list[place->second].stories.push_back(story.number);
        }
    return list;
}

std::string StoriesOf(const Sheet& sheet, const NotCounted& entry) {
    std::string names;
    for (const int story : entry.stories)
        names += (names.empty() ? "" : ", ") + sheet.names.StoryInTable(story);
    return HtmlText(names);
}

std::string NotCountedTable(const Sheet& sheet) {
    const std::vector<NotCounted> list = UprightNotCounted(sheet.findings);
    if (list.empty()) return {};
    Table table("T3cut", Text("T3cut"), {22, 30, 24, 17, 17, 17, 17, 17, 17}, "dense");
    std::vector<FilledWords> names;
    for (const std::size_t axis : {kX, kZ})
        names.push_back(Filled(Text("direction d"), {{"d", sheet.names.Direction(axis)}}));
    table.HeadRow({{Text("member"), {}, 1, 2},
                   {Text("story"), {}, 1, 2},
                   {Text("height of the member"), "mm", 1, 2},
                   {names[kX], {}, 3},
                   {names[kZ], {}, 3}});
    std::vector<HeadCell> columns;
    for (int i = 0; i < 2; ++i) {
        columns.push_back({Text("drift"), "mm"});
        columns.push_back({Text("angle over own height")});
        columns.push_back({Text("shear Q"), "kN"});
    }
    table.HeadRow(columns);
    for (const NotCounted& entry : list) {
        const MemberFindings& member = *entry.member;
        std::string cells = RowHead(IdentifierText(member.number)) +
                            Cell(StoriesOf(sheet, entry), "c") +
                            NumberCell(LevelText(member.height));
        for (const std::size_t axis : {kX, kZ})
            cells += NumberCell(NumberText(member.drift[axis], kDriftFormat)) +
                     NumberCell(AngleText(member.drift[axis], member.height)) +
                     NumberCell(NumberText(member.shear[axis], kForceFormat));
        table.Row(cells);
    }
    return table.TakeHtml() + SmallPrint(Text("for information, R06 and R07"));
}

}  // namespace

void AngleSection(const Sheet& sheet, std::string& html) {
    html += OpenTag("section", {{"id", "S3"}, {"class", "own-page"}});
    html += Heading("3", Text("S3")) + FormulaLine("γ = δ / h ≦ 1/200", Text("angle formulas"));
    if (sheet.findings.stories.empty()) {
        html += SmallPrint(Text("no stories")) + "</section>\n";
        return;
    }
    html += AngleTable(sheet, kX) + AngleTable(sheet, kZ) + AngleProfile(sheet);
    html += NotCountedTable(sheet) + "</section>\n";
}
