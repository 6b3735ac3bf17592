#include <algorithm>
#include <cmath>

#include "compare/comparison_drawings.h"
#include "sheet/drawing_parts.h"
#include "sheet/html.h"
#include "sheet/svg.h"

namespace {

constexpr double kProfileWidth = 84.0;  // mm on paper, as all lengths here
constexpr double kLeft = 16.0;
constexpr double kTop = 7.0;
constexpr double kBottom = 4.0;
constexpr double kTallest = 90.0;  // of all stories together
constexpr double kBand = 6.0;      // of one story, where there is room

constexpr Stroke kStrokeOfA{kGrey, 0.25};
constexpr Stroke kStrokeOfB{kBlack, 0.5};
constexpr Stroke kStrokeOfLimit{kRed, 0.25, "1.2 0.8"};

struct Field {
    double band = kBand;
    double scale = 1.0;  // mm on paper per unit of the value
    std::size_t stories = 0;

    double XOf(double value) const { return kLeft + std::max(0.0, value) * scale; }
    double MiddleOf(std::size_t story) const {
        return kTop + (static_cast<double>(stories - story) - 0.5) * band;
    }
    double Bottom() const { return kTop + static_cast<double>(stories) * band; }
};

double LargestOf(const ComparedProfile& profile) {
    double largest = profile.limit;
    for (const auto* figures : {&profile.a, &profile.b})
        for (const FigureRead& figure : *figures)
            if (figure && std::isfinite(*figure)) largest = std::max(largest, *figure);
    return largest;
}

// Stories without the figure interrupt the line; a figure by itself is a point.
void DrawRun(Svg& svg, const Field& field, const std::vector<FigureRead>& figures,
             const Stroke& stroke) {
    std::vector<Point> line;
    const auto end = [&] {
        if (line.size() > 1) svg.Polyline(line, stroke);
        for (const Point& point : line)
            svg.Circle(point, stroke.width * 1.4, stroke, stroke.color);
        line.clear();
    };
    for (std::size_t story = 0; story < figures.size(); ++story) {
        if (const FigureRead& figure = figures[story]; figure && std::isfinite(*figure))
            line.push_back({field.XOf(*figure), field.MiddleOf(story)});
        else
            end();
    }
    end();
}

void DrawStories(Svg& svg, const Field& field, const std::vector<std::string>& stories) {
    // Names that would overlap are left out.
    const auto step = static_cast<std::size_t>(std::ceil(3.0 / field.band));
    for (std::size_t story = 0; story < stories.size(); ++story) {
        const double level = kTop + static_cast<double>(field.stories - story) * field.band;
        svg.Line({kLeft, level}, {kProfileWidth - 2.0, level}, {kLightGrey, 0.1});
        if (story % step == 0)
            svg.Text({kLeft - 1.0, field.MiddleOf(story) + 0.8},
                     {kSmallestText, Anchor::kEnd, kBlack}, HtmlText(stories[story], 12));
    }
}

}  // namespace

std::string ProfileDrawing(const ComparedProfile& profile) {
    Field field;
    field.stories = profile.stories.size();
    field.band = std::min(kBand, kTallest / std::max(1.0, static_cast<double>(field.stories)));
    field.scale = (kProfileWidth - kLeft - 4.0) / std::max(LargestOf(profile) * 1.05, 1e-12);
    Svg svg(kProfileWidth, field.Bottom() + kBottom, profile.title,
            {"細い灰色は A、黒は B、赤い破線は許容値",
             "A thin and grey, B black, the limit red and dashed"});
    svg.Text({kLeft, 4.0}, {2.6, Anchor::kStart, kBlack, true}, DrawnInBoth(profile.title));
    DrawStories(svg, field, profile.stories);
    svg.Line({kLeft, kTop}, {kLeft, field.Bottom()}, {kBlack, 0.2});
    svg.Line({field.XOf(profile.limit), kTop}, {field.XOf(profile.limit), field.Bottom()},
             kStrokeOfLimit);
    svg.Text({field.XOf(profile.limit) + 0.8, field.Bottom() + 2.6}, {kSmallestText},
             HtmlText(profile.limitText));
    svg.Text({kLeft, field.Bottom() + 2.6}, {kSmallestText, Anchor::kMiddle}, "0");
    DrawRun(svg, field, profile.a, kStrokeOfA);
    DrawRun(svg, field, profile.b, kStrokeOfB);
    return svg.Html();
}
