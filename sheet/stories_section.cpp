// S2: the building from the side, its stories, and what they carry.

#include <cmath>

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/elevation.h"
#include "sheet/first_page.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

constexpr double kFullShare = 0.01;    // beside 1, of the story shear
constexpr double kLargeAcross = 0.05;  // of the shear along

FilledWords HowFound(const Findings& findings) {
    const Words input = Text("from input"), model = Text("from model");
    const bool floors = findings.floorLevelsFromInput, members = findings.storyMembersFromInput;
    if (floors == members) return Filled(floors ? input : model, {});
    return Filled(Text("floors and members from"),
                  {{"floors", floors ? input : model}, {"members", members ? input : model}});
}

std::string StoryRow(const Sheet& sheet, const StoryFindings& story, const std::string& howFound) {
    const int n = story.number;
    const auto leaning = static_cast<std::size_t>(CountLeaning(story));
    const std::size_t cut = story.cutNotCounted.size();
    return StoryHead(sheet.names.StoryInTable(n)) +
           FigureCell({"lowerLevel_mm", n, {}, {}}, LevelText(story.lowerLevel)) +
           FigureCell({"upperLevel_mm", n, {}, {}}, LevelText(story.upperLevel)) +
           FigureCell({"height_mm", n, {}, {}}, LevelText(story.height)) +
           FigureCell({"storyMembers", n, {}, {}}, CountText(story.members.size())) +
           FigureCell({"uprightMembers", n, {}, {}}, CountText(story.members.size() - leaning)) +
           FigureCell({"leaning", n, {}, {}}, CountText(leaning)) +
           FigureCell({"cutNotCounted", n, {}, {}}, CountText(cut), cut > 0 ? "red" : "") +
           Cell(howFound, "c");
}

// More stories than that make the first page tight.
std::string Density(const Sheet& sheet) {
    const std::size_t mostWithRoom = IsFirstPageCrowded(sheet) ? 3 : 5;
    const bool isTight =
        sheet.StoryCount() > mostWithRoom && sheet.StoryCount() <= kMostStoriesOnFirstPage;
    return isTight ? " quiet tight" : "";
}

std::string StoryTable(const Sheet& sheet) {
    Table table("T2a", Text("T2a"), {14, 21, 21, 20, 19, 16, 16, 20, 39},
                Concat({"dense quiet", Density(sheet), KeptTogether(sheet.StoryCount())}));
    table.HeadRow({{Text("story")},
                   {Text("lower level"), "mm"},
                   {Text("upper level"), "mm"},
                   {Text("story height h"), "mm"},
                   {Text("story members")},
                   {Text("upright")},
                   {Text("leaning")},
                   {Text("cut, not counted")},
                   {Text("how found")}});
    const std::string howFound = InBoth(HowFound(sheet.findings));
    for (std::size_t i = sheet.StoryCount(); i-- > 0;)
        table.Row(StoryRow(sheet, sheet.findings.stories[i], howFound));
    return table.TakeHtml();
}

std::string ShareClass(const Figure& share) {
    return share && std::abs(*share - 1.0) > kFullShare ? "yellow" : "";
}

std::string AcrossClass(const Figure& share) {
    return share && *share > kLargeAcross ? "yellow" : "";
}

std::string ShearCells(const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    const auto place = [&](std::string_view key) {
        return FigurePlace{key, story.number, axis, {}};
    };
    return FigureCell(place("storyShear_kN"), NumberText(direction.storyShear, kForceFormat),
                      "first") +
           FigureCell(place("shearOfStoryMembers_kN"),
                      NumberText(direction.shearOfStoryMembers, kForceFormat)) +
           FigureCell(place("share"), PercentText(direction.share), ShareClass(direction.share)) +
           FigureCell(place("floorForce_kN"), NumberText(direction.floorForce, kForceFormat)) +
           FigureCell(place("acrossShare"), PercentText(direction.acrossShare),
                      AcrossClass(direction.acrossShare)) +
           FigureCell(place("shearCoefficient"),
                      NumberText(direction.shearCoefficient, kCoefficientFormat));
}

std::string WeightTable(const Sheet& sheet) {
    std::vector<double> widths{11, 17, 15};
    for (const std::size_t axis : {kX, kZ}) {
        static_cast<void>(axis);
        widths.insert(widths.end(), {14.5, 14.5, 10, 12.5, 9.5, 10});
    }
    Table table("T2b", Text("T2b"), widths,
                Concat({"dense wide", Density(sheet), KeptTogether(sheet.StoryCount())}));
    std::vector<FilledWords> names;
    for (const std::size_t axis : {kX, kZ})
        names.push_back(
            Filled(Text("direction and case"),
                   {{"d", sheet.names.Direction(axis)},
                    {"case", IdentifierText(sheet.findings.loadCases.earthquake[axis])}}));
    std::vector<HeadCell> groups{{Text("story"), {}, 1, 2},
                                 {Text("weight above"), "kN", 1, 2},
                                 {Text("floor weight"), "kN", 1, 2}};
    std::vector<HeadCell> columns;
    for (const std::size_t axis : {kX, kZ}) {
        groups.push_back({names[axis], {}, 6});
        columns.push_back({Text("story shear Q"), "kN"});
        columns.push_back({Text("of story members"), "kN"});
        columns.push_back({Text("share"), "%"});
        columns.push_back({Text("floor force"), "kN"});
        columns.push_back({Text("across"), "%"});
        columns.push_back({Text("C")});
    }
    table.HeadRow(groups);
    table.HeadRow(columns);
    for (std::size_t i = sheet.StoryCount(); i-- > 0;) {
        const StoryFindings& story = sheet.findings.stories[i];
        const int n = story.number;
        table.Row(
            StoryHead(sheet.names.StoryInTable(n)) +
            FigureCell({"weightAbove_kN", n, {}, {}}, NumberText(story.weightAbove, kForceFormat)) +
            FigureCell({"floorWeight_kN", n, {}, {}}, NumberText(story.floorWeight, kForceFormat)) +
            ShearCells(story, kX) + ShearCells(story, kZ));
    }
    return table.TakeHtml();
}

}  // namespace

void StoriesSection(const Sheet& sheet, std::string& html) {
    const bool isOnFirstPage = sheet.StoryCount() <= kMostStoriesOnFirstPage;
    html += OpenTag("section", {{"id", "S2"}, {"class", isOnFirstPage ? "follows" : "own-page"}});
    html += Heading("2", Text("S2"));
    if (sheet.findings.stories.empty()) {
        html += SmallPrint(Text("no stories")) + Elevations(sheet) + "</section>\n";
        return;
    }
    html += Elevations(sheet) + StoryTable(sheet) + WeightTable(sheet);
    html += SmallPrint(Text("compare C"));
    html += "</section>\n";
}
