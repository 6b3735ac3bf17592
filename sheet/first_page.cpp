#include "sheet/first_page.h"

#include <algorithm>
#include <cmath>

#include "sheet/svg.h"

namespace {

// Lengths on paper, mm.
constexpr double kGreatestHeightOfElevation = 95.0;
constexpr double kSmallestHeight = 26.0;  // the names of nine levels have room beside it
constexpr double kSmallestCrowded = 22.0;
constexpr double kRoomOfAll = 70.0;   // without stories
constexpr double kRoomOfStory = 7.6;  // its two rows
constexpr double kRoomGained = 20.0;  // by setting everything closer
constexpr double kLeastRoom = 5.0;    // with which the smallest drawing fits

// The head, as the style sheet has it; what stands in it beside a path: digest, size and time.
constexpr double kCellWidth = 138.0;
constexpr double kCellSize = 2.72, kCellLine = 3.3;
constexpr double kDigestWidth = 38.0;
constexpr double kSizeAndTimeWidth = 48.0;
constexpr double kCaseLabelsWidth = 62.0;

// The frame of the errors, as the style sheet has it.
constexpr double kFrame = 8.0;
constexpr double kLineWidth = 163.0;
constexpr double kJapaneseSize = 2.6, kJapaneseLine = 3.2;
constexpr double kEnglishSize = 2.1, kEnglishLine = 2.6;

double HeightOf(const std::string& text, const std::string& whatToDo, double size, double line) {
    return std::ceil(TextWidth(text + whatToDo, size) / kLineWidth) * line;
}

// An estimate, rather too high than too low; the language that is not shown is counted, too.
double HeightOfErrors(const Findings& findings) {
    double height = 0.0;
    for (const Remark& remark : findings.remarks) {
        if (remark.kind != RemarkKind::kError) continue;
        if (height == 0.0) height = kFrame;
        height += HeightOf(remark.ja, remark.doJa, kJapaneseSize, kJapaneseLine) +
                  HeightOf(remark.en, remark.doEn, kEnglishSize, kEnglishLine);
    }
    return height;
}

double LinesBeyondOne(double width) {
    return std::max(std::ceil(width / kCellWidth) - 1.0, 0.0);
}

// What long paths and names add to the head, in which each row has one line.
double HeightOfLongHead(const Sheet& sheet) {
    const SheetContent& content = sheet.content;
    const auto width = [](const std::string& text) { return TextWidth(text, kCellSize); };
    double model = kDigestWidth;
    for (const std::string& path : PathsOfModel(content))
        model += width(path);
    double cases = kCaseLabelsWidth;
    for (const std::int32_t number :
         {sheet.findings.loadCases.dead, sheet.findings.loadCases.earthquake[kX],
          sheet.findings.loadCases.earthquake[kZ]})
        cases += width(sheet.names.LoadCase(number).ja);
    const double input = width(content.input.path) + kSizeAndTimeWidth + kDigestWidth;
    const SheetLines& lines = content.sheetLines;
    return kCellLine *
           (LinesBeyondOne(width(lines.project)) + LinesBeyondOne(width(lines.designer)) +
            LinesBeyondOne(model) + LinesBeyondOne(input) + LinesBeyondOne(cases));
}

// For the drawing of the stories, mm; less than it needs where the page is too full.
double RoomForElevation(const Sheet& sheet) {
    return kRoomOfAll - kRoomOfStory * static_cast<double>(sheet.StoryCount()) -
           HeightOfLongHead(sheet);
}

}  // namespace

bool IsFirstPageCrowded(const Sheet& sheet) {
    if (sheet.StoryCount() > kMostStoriesOnFirstPage) return false;
    return RoomForElevation(sheet) < kLeastRoom || HeightOfErrors(sheet.findings) > 0.0;
}

double GreatestElevation(const Sheet& sheet) {
    if (sheet.StoryCount() > kMostStoriesOnFirstPage) return kGreatestHeightOfElevation;
    const double errors = HeightOfErrors(sheet.findings);
    double room = RoomForElevation(sheet) - errors;
    if (IsFirstPageCrowded(sheet)) room += kRoomGained;
    return std::clamp(room, errors > 0.0 ? kSmallestCrowded : kSmallestHeight,
                      kGreatestHeightOfElevation);
}
