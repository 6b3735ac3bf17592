#include <algorithm>
#include <cmath>
#include <limits>

#include "compare/comparison_drawings.h"
#include "sheet/drawing_parts.h"
#include "sheet/html.h"
#include "sheet/svg.h"

namespace {

constexpr double kPlanWidth = 84.0;  // mm on paper
constexpr double kHeight = 70.0;
constexpr double kMargin = 9.0;
constexpr double kHead = 7.0;
constexpr double kFoot = 9.0;  // for the scale and the axes

// The part of the plan that is drawn, mm of the building.
struct PlanExtent {
    double left = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::max();
    double top = std::numeric_limits<double>::lowest();

    void Take(double x, double v) {
        if (!std::isfinite(x) || !std::isfinite(v)) return;
        left = std::min(left, x);
        right = std::max(right, x);
        bottom = std::min(bottom, v);
        top = std::max(top, v);
    }
    bool IsEmpty() const { return left > right; }
};

struct PlanField {
    PlanExtent extent;
    double scale = 1.0;

    Point PointOf(double x, double v) const {
        const double middleX = (extent.left + extent.right) / 2.0;
        const double middleV = (extent.bottom + extent.top) / 2.0;
        return {kPlanWidth / 2.0 + (x - middleX) * scale,
                kHead + (kHeight - kHead - kFoot) / 2.0 - (v - middleV) * scale};
    }
};

PlanField FieldOf(const StoryRead* a, const StoryRead* b) {
    PlanField field;
    for (const StoryRead* story : {a, b}) {
        if (story == nullptr) continue;
        for (const MemberRead& member : story->members)
            field.extent.Take(member.x, member.v);
        for (const auto& center : {story->gravityCenter, story->rigidityCenter})
            if (center[0] && center[1]) field.extent.Take(*center[0], *center[1]);
    }
    const double width = std::max(field.extent.right - field.extent.left, 1.0);
    const double height = std::max(field.extent.top - field.extent.bottom, 1.0);
    field.scale = std::min((kPlanWidth - 2.0 * kMargin) / width,
                           (kHeight - kHead - kFoot - kMargin) / height);
    return field;
}

void DrawMembers(Svg& svg, const PlanField& field, const StoryRead& story, double half,
                 std::string_view color) {
    std::vector<Point> points;
    for (const MemberRead& member : story.members)
        if (std::isfinite(member.x) && std::isfinite(member.v))
            points.push_back(field.PointOf(member.x, member.v));
    svg.Squares(points, half, color);
}

// G is a ring with a cross, R a filled square on its corner: to be told apart without colours.
void DrawCenters(Svg& svg, const PlanField& field, const StoryRead& story, const char* run,
                 const Stroke& stroke, double side) {
    const TextStyle text{kSmallestText, side < 0 ? Anchor::kEnd : Anchor::kStart, stroke.color,
                         false, true};
    const auto& [gx, gv] = story.gravityCenter;
    if (gx && gv) {
        const Point at = field.PointOf(*gx, *gv);
        svg.Circle(at, 1.4, stroke, "none");
        svg.Line({at.x - 2.0, at.y}, {at.x + 2.0, at.y}, stroke);
        svg.Line({at.x, at.y - 2.0}, {at.x, at.y + 2.0}, stroke);
        svg.Text({at.x + 2.4 * side, at.y - 1.2}, text, DrawnSymbol("G", run));
    }
    const auto& [rx, rv] = story.rigidityCenter;
    if (rx && rv) {
        const Point at = field.PointOf(*rx, *rv);
        svg.Polygon(
            {{at.x - 1.6, at.y}, {at.x, at.y - 1.6}, {at.x + 1.6, at.y}, {at.x, at.y + 1.6}},
            stroke, stroke.color);
        svg.Text({at.x + 2.4 * side, at.y + 2.8}, text, DrawnSymbol("R", run));
    }
}

FilledWords StoryTitle(const StoryRead& story, Words alone) {
    const std::string number = std::to_string(story.number);
    FilledWords title{number + "階", "story " + number};
    title.ja += alone.ja;
    title.en += alone.en;
    return title;
}

FilledWords TitleOf(const StoryRead* a, const StoryRead* b) {
    if (a != nullptr && b != nullptr) return StoryTitle(*b, {"", ""});
    if (b != nullptr) return StoryTitle(*b, {"(B のみ)", " (B alone)"});
    if (a != nullptr) return StoryTitle(*a, {"(A のみ)", " (A alone)"});
    return {};
}

}  // namespace

std::string PlanDrawing(const StoryRead* a, const StoryRead* b,
                        const std::string& secondDirection) {
    const FilledWords title = TitleOf(a, b);
    Svg svg(kPlanWidth, kHeight, title,
            {"柱の位置、重心 G、剛心 R。灰色は A、黒は B",
             "members, centres of gravity G and of rigidity R; A grey, B black"});
    svg.Text({2.0, 4.0}, {2.6, Anchor::kStart, kBlack, true}, DrawnInBoth(title));
    const PlanField field = FieldOf(a, b);
    if (field.extent.IsEmpty()) return svg.Html();
    if (a != nullptr) DrawMembers(svg, field, *a, 0.9, kLightGrey);
    if (b != nullptr) DrawMembers(svg, field, *b, 0.5, kBlack);
    if (a != nullptr) DrawCenters(svg, field, *a, "A", {kGrey, 0.25}, -1.0);
    if (b != nullptr) DrawCenters(svg, field, *b, "B", {kBlack, 0.35}, 1.0);
    DrawScaleBar(svg, {3.0, kHeight - 3.0}, field.scale, 25.0);
    DrawAxis(svg, {kPlanWidth - 12.0, kHeight - 2.0}, {1.0, 0.0}, "X");
    DrawAxis(svg, {kPlanWidth - 12.0, kHeight - 2.0}, {0.0, -1.0}, secondDirection);
    return svg.Html();
}
