#include "sheet/first_page.h"

#include <algorithm>
#include <cmath>

#include "sheet/svg.h"

namespace {

constexpr double kGreatestHeightOfElevation = 95.0;  // mm
constexpr double kSmallestHeight = 26.0;             // the names of nine levels have room beside it
constexpr double kSmallestCrowded = 22.0;
constexpr double kRoomOfAll = 70.0;   // without stories
constexpr double kRoomOfStory = 7.6;  // its two rows
constexpr double kRoomGained = 20.0;  // by setting everything closer

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
    for (const Remark& remark : findings.remarks)
        if (remark.kind == RemarkKind::kError)
            height += HeightOf(remark.ja, remark.doJa, kJapaneseSize, kJapaneseLine) +
                      HeightOf(remark.en, remark.doEn, kEnglishSize, kEnglishLine);
    return height > 0.0 ? kFrame + height : 0.0;
}

}  // namespace

bool IsFirstPageCrowded(const Sheet& sheet) {
    return sheet.StoryCount() <= kMostStoriesOnFirstPage &&
           std::ranges::any_of(sheet.findings.remarks, [](const Remark& remark) {
               return remark.kind == RemarkKind::kError;
           });
}

double GreatestElevation(const Sheet& sheet) {
    if (sheet.StoryCount() > kMostStoriesOnFirstPage) return kGreatestHeightOfElevation;
    double room = kRoomOfAll - kRoomOfStory * static_cast<double>(sheet.StoryCount());
    if (!IsFirstPageCrowded(sheet))
        return std::clamp(room, kSmallestHeight, kGreatestHeightOfElevation);
    room += kRoomGained - HeightOfErrors(sheet.findings);
    return std::clamp(room, kSmallestCrowded, kGreatestHeightOfElevation);
}
