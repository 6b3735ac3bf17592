#include "compare/comparison_page.h"

#include <cmath>
#include <functional>

#include "compare/comparison_drawings.h"
#include "compare/figure_texts.h"
#include "report/number_text.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/table.h"

namespace {

// One check of the page: which figure, how it is written, and against what.
struct PageCheck {
    const char* key = "";
    Words title;
    FigureRead (*figure)(const DirectionRead&) = nullptr;
    std::string (*text)(const StoryRead&, const DirectionRead&) = nullptr;
    CodeVerdict (*code)(const DirectionRead&) = nullptr;
    std::optional<ToolVerdict> (*tool)(const DirectionRead&) = nullptr;
    double limit = 0.0;
    const char* limitText = "";
};

constexpr PageCheck kChecks[] = {
    {"angle",
     {"層間変形角", "Story deformation angle"},
     [](const DirectionRead& d) { return d.angle; },
     [](const StoryRead& s, const DirectionRead& d) { return AngleTextOf(s, d, kPageNumbers); },
     [](const DirectionRead& d) { return d.angleCode; },
     [](const DirectionRead& d) { return d.angleTool; },
     kCodeDeformAngle,
     "1/200"},
    {"ratio",
     {"剛性率", "Story stiffness ratio"},
     [](const DirectionRead& d) { return d.ratio; },
     [](const StoryRead&, const DirectionRead& d) { return RatioTextOf(d, kPageNumbers); },
     [](const DirectionRead& d) { return d.ratioCode; },
     [](const DirectionRead& d) { return d.ratioTool; },
     kCodeStiffnessRatio,
     "0.6"},
    {"modulus",
     {"偏心率", "Eccentricity modulus"},
     [](const DirectionRead& d) { return d.modulus; },
     [](const StoryRead&, const DirectionRead& d) { return ModulusTextOf(d, kPageNumbers); },
     [](const DirectionRead& d) { return d.modulusCode; },
     [](const DirectionRead& d) { return d.modulusTool; },
     kCodeEccentricityModulus,
     "0.15"},
};

class Page {
public:
    Page(const RunRead& a, const RunRead& b, const Comparison& comparison)
        : a_(a), b_(b), comparison_(comparison) {}

    std::string Body() const {
        std::string html = Element("h1", {}, InBoth({"計算結果の比較", "Two runs compared"}));
        html += Runs();
        for (const PageCheck& check : kChecks)
            html += Check(check);
        html += Plans();
        return html + OtherChanges();
    }

private:
    const StoryRead* OfA(const StoryPair& pair) const {
        return pair.a ? &a_.stories[*pair.a] : nullptr;
    }
    const StoryRead* OfB(const StoryPair& pair) const {
        return pair.b ? &b_.stories[*pair.b] : nullptr;
    }

    std::string DirectionOf(std::size_t axis) const { return DirectionName(a_, b_, axis); }

    // "3", or "2 → 3" where the numbers differ.
    std::string NumberOf(const StoryPair& pair) const {
        const StoryRead* const a = OfA(pair);
        const StoryRead* const b = OfB(pair);
        if (a == nullptr) return std::to_string(b->number);
        if (b == nullptr || a->number == b->number) return std::to_string(a->number);
        return std::to_string(a->number) + " → " + std::to_string(b->number);
    }

    std::string Runs() const;
    std::string Check(const PageCheck& check) const;
    std::string CheckTable(const PageCheck& check, std::size_t axis) const;
    std::string CheckRow(const PageCheck& check, const StoryPair& pair, std::size_t axis) const;
    std::string Profile(const PageCheck& check, std::size_t axis) const;
    std::string Plans() const;
    std::string OtherChanges() const;

    const RunRead& a_;
    const RunRead& b_;
    const Comparison& comparison_;
};

std::string VerdictText(const RunRead& run) {
    return std::string(TextInSheet(run.code)) + " (" + std::string(TextInSheet(run.tool)) + ")";
}

std::string Page::Runs() const {
    Table table("runs", {"2つの計算", "The two runs"}, {2.0, 5.0, 5.0}, "text");
    table.HeadRow({{{"項目", "Item"}}, {{"A", "A"}}, {{"B", "B"}}});
    const auto row = [&table](Words label, const std::string& a, const std::string& b) {
        table.Row(RowHead(InBoth(label)) + Cell(HtmlText(a)) + Cell(HtmlText(b)));
    };
    row({"ファイル", "File"}, a_.path, b_.path);
    row({"モデル", "Model"}, a_.modelPath, b_.modelPath);
    row({"入力ファイル", "Input file"}, a_.inputPath, b_.inputPath);
    row({"作成", "Made"}, a_.made, b_.made);
    row({"判定(プログラム)", "Verdict (tool)"}, VerdictText(a_), VerdictText(b_));
    if (!a_.complete || !b_.complete) row({"終了", "Ended early"}, a_.failure, b_.failure);
    return table.TakeHtml();
}

// How much greater the figure of B is; angles in percent, for 1/N has no difference to be read.
std::string Difference(const PageCheck& check, const FigureRead& a, const FigureRead& b) {
    if (!a || !b) return kNoFigure;
    const bool isAngle = check.figure == kChecks[0].figure;
    if (isAngle && *a == 0.0) return kNoFigure;
    const double difference = isAngle ? (*b / *a - 1.0) * 100.0 : *b - *a;
    const NumberFormat format{Rounding::kNearest, isAngle ? 1 : 3};
    std::string text(difference > 0 ? "+" : "");
    text += NumberText(difference, format);
    if (isAngle) text += " %";
    return text;
}

std::string Page::CheckRow(const PageCheck& check, const StoryPair& pair, std::size_t axis) const {
    const StoryRead* const a = OfA(pair);
    const StoryRead* const b = OfB(pair);
    const auto cell = [&](const StoryRead* story) {
        return NumberCell(story == nullptr ? kNoFigure
                                           : check.text(*story, story->directions.at(axis)));
    };
    const auto figure = [&](const StoryRead* story) {
        return story == nullptr ? FigureRead() : check.figure(story->directions.at(axis));
    };
    const auto verdict = [&](const StoryRead* story) {
        if (story == nullptr) return std::string(kNoFigure);
        const DirectionRead& direction = story->directions.at(axis);
        return std::string(TextInSheet(check.code(direction))) + " (" +
               std::string(TextInSheet(check.tool(direction))) + ")";
    };
    const std::string before = verdict(a);
    const std::string after = verdict(b);
    return StoryHead(NumberOf(pair)) + cell(a) + cell(b) +
           NumberCell(Difference(check, figure(a), figure(b))) +
           (before == after ? Cell(before, "c")
                            : Cell(Element("strong", {}, before + " → " + after), "c"));
}

std::string Page::CheckTable(const PageCheck& check, std::size_t axis) const {
    const std::string direction = DirectionOf(axis);
    const FilledWords caption{std::string(check.title.ja) + " " + direction + "方向",
                              std::string(check.title.en) + ", direction " + direction};
    Table table(check.key, caption, {1.5, 2.0, 2.0, 2.0, 4.5},
                KeptTogether(comparison_.stories.size()));
    table.HeadRow({{{"階", "Story"}},
                   {{"A", "A"}},
                   {{"B", "B"}},
                   {{"差", "Difference"}},
                   {{"判定(プログラム)", "Verdict (tool)"}}});
    for (auto pair = comparison_.stories.rbegin(); pair != comparison_.stories.rend(); ++pair)
        table.Row(CheckRow(check, *pair, axis));
    return table.TakeHtml();
}

std::string Page::Profile(const PageCheck& check, std::size_t axis) const {
    const std::string direction = DirectionOf(axis);
    const FilledWords title{std::string(check.title.ja) + " " + direction + "方向",
                            std::string(check.title.en) + ", " + direction};
    ComparedProfile profile{title, {}, {}, {}, check.limit, check.limitText};
    const auto figure = [&](const StoryRead* story) {
        return story == nullptr ? FigureRead() : check.figure(story->directions.at(axis));
    };
    for (const StoryPair& pair : comparison_.stories) {
        profile.stories.push_back(NumberOf(pair));
        profile.a.push_back(figure(OfA(pair)));
        profile.b.push_back(figure(OfB(pair)));
    }
    return Element("figure", {}, ProfileDrawing(profile));
}

std::string Page::Check(const PageCheck& check) const {
    std::string html = Element("h2", {}, InBoth(check.title));
    for (const std::size_t axis : {std::size_t{0}, std::size_t{1}})
        html += CheckTable(check, axis);
    for (const std::size_t axis : {std::size_t{0}, std::size_t{1}})
        html += Profile(check, axis);
    return html;
}

std::string Page::Plans() const {
    std::string html = Element("h2", {}, InBoth({"重心と剛心", "Centres of gravity and rigidity"}));
    for (auto pair = comparison_.stories.rbegin(); pair != comparison_.stories.rend(); ++pair)
        html += Element("figure", {}, PlanDrawing(OfA(*pair), OfB(*pair), DirectionOf(1)));
    return html;
}

std::string Page::OtherChanges() const {
    Table table("changes", {"入力・モデル・備考の変更", "Changes of input, model and remarks"},
                {3.0, 4.5, 4.5}, "text");
    table.HeadRow({{{"項目", "Item"}}, {{"A", "A"}}, {{"B", "B"}}});
    bool isEmpty = true;
    for (const ::Change& change : comparison_.changes) {
        if (!change.isChange || change.section == ChangeSection::kChecks) continue;
        isEmpty = false;
        table.Row(RowHead(HtmlText(change.what)) + Cell(HtmlText(change.before)) +
                  Cell(HtmlText(change.after)));
    }
    const std::string heading = Element("h2", {}, InBoth({"その他の変更", "Other changes"}));
    if (isEmpty) return heading + SmallPrint({"なし", "None"});
    return heading + table.TakeHtml();
}

}  // namespace

std::string ComparisonPage(const RunRead& a, const RunRead& b, const Comparison& comparison) {
    return PlainPage("Quarnel: A – B", Page(a, b, comparison).Body());
}
