// S9: the input file as it stands, and what the run took from each line.

#include <algorithm>

#include "report/number_text.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

constexpr std::size_t kMostLinesInBody = 120;
constexpr std::size_t kMostLinesShown = 2000;
constexpr std::size_t kLongestNote = 1000;  // characters

std::string_view ClassOf(InputLineNote::Kind kind) {
    switch (kind) {
        case InputLineNote::Kind::kTaken:
            return "taken";
        case InputLineNote::Kind::kNote:
            return "remarked";
        case InputLineNote::Kind::kWarning:
            return "warned";
        case InputLineNote::Kind::kError:
            return "wrong";
    }
    return {};
}

std::string NoteHtml(const InputLineNote& note) {
    std::string html = note.kind == InputLineNote::Kind::kTaken ? "→ " : "";
    if (!note.id.empty()) html += "<b>" + HtmlText(note.id) + "</b> ";
    html += Element("span", {{"class", "ja"}, {"lang", "ja"}}, HtmlText(note.ja, kLongestNote)) +
            Element("span", {{"class", "en"}, {"lang", "en"}}, HtmlText(note.en, kLongestNote));
    return Element("div", {{"class", std::string(ClassOf(note.kind))}}, html);
}

// What is said of one line.
std::string NotesOfLine(const std::vector<InputLineNote>& notes, std::size_t line) {
    std::string html;
    for (const InputLineNote& note : notes)
        if (note.line == line) html += NoteHtml(note);
    return html;
}

bool IsWrong(const std::vector<InputLineNote>& notes, std::size_t line) {
    return std::ranges::any_of(notes, [line](const InputLineNote& note) {
        return note.line == line && note.kind == InputLineNote::Kind::kError;
    });
}

std::string LinesTable(const InputAsRead& input) {
    Table table("S9", Text("S9"), {9, 79, 90}, "quiet input text");
    table.HeadRow({{Text("line number")}, {Text("line of the input")}, {Text("what was taken")}});
    const std::size_t shown = std::min(input.lines.size(), kMostLinesShown);
    for (std::size_t i = 0; i < shown; ++i)
        table.Row(RowHead(std::to_string(i + 1)) +
                      Cell(Element("code", {}, HtmlText(input.lines[i])), "line") +
                      Cell(NotesOfLine(input.notes, i + 1)),
                  IsWrong(input.notes, i + 1) ? " class=\"wrong\"" : "");
    std::string html = table.TakeHtml();
    if (shown < input.lines.size())
        html += SmallPrint(
            Filled(Text("further lines"), {{"n", CountText(input.lines.size() - shown)}}));
    return html;
}

std::string Defaults(const InputAsRead& input) {
    std::string items;
    for (const InputLineNote& note : input.defaults)
        items += Element("li", {}, OutsideTextInBoth({note.ja, note.en}));
    if (items.empty()) return {};
    return "<p class=\"small\">" + InBoth(Text("defaults")) + "</p><ul class=\"method few\">" +
           items + "</ul>\n";
}

std::string AllowableLines(const Sheet& sheet) {
    std::string items;
    for (const StoryFindings& story : sheet.findings.stories) {
        const FilledWords words =
            Filled(Text("allowable values of a story"),
                   {{"story", sheet.names.Story(story.number)},
                    {"angle", AllowableAngleText(story.allowableAngle)},
                    {"angleValue", InputValueText(story.allowableAngle)},
                    {"code", AllowableAngleText(story.directions[kX].worstUpright.allowable)},
                    {"ratio", InputValueText(story.allowableRatio)},
                    {"modulus", InputValueText(story.allowableModulus)}});
        const bool isUsual = story.allowableAngle == kCodeDeformAngle &&
                             story.allowableRatio == kCodeStiffnessRatio &&
                             story.allowableModulus == kCodeEccentricityModulus;
        if (!isUsual) items += Element("li", {}, InBoth(words));
    }
    if (items.empty()) return {};
    return "<p class=\"small\">" + InBoth(Text("allowable values")) +
           "</p><ul class=\"method few\">" + items + "</ul>\n";
}

}  // namespace

void InputSection(const Sheet& sheet, std::string& html) {
    const InputAsRead& input = sheet.content.inputAsRead;
    const bool isLong = input.lines.size() > kMostLinesInBody;
    html += OpenTag("section", {{"id", "S9"}, {"class", isLong ? "own-page" : "follows"}});
    html += Heading("9", Text("S9"));
    html += input.lines.empty() ? SmallPrint(Text("no input")) : LinesTable(input);
    html += Defaults(input) + AllowableLines(sheet) + "</section>\n";
}
