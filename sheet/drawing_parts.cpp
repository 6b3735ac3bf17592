#include "sheet/drawing_parts.h"

#include <cmath>

#include "report/number_text.h"
#include "sheet/html.h"
#include "sheet/length_text.h"

namespace {

constexpr double kArrowLength = 6.0;  // mm

// The greatest of 1, 2 and 5 times a power of ten that is not above `limit`.
double RoundLengthUpTo(double limit) {
    const double power = std::pow(10.0, std::floor(std::log10(limit)));
    for (const double factor : {5.0, 2.0})
        if (factor * power <= limit) return factor * power;
    return power;
}

}  // namespace

double DrawScaleBar(Svg& svg, Point at, double scale, double longest) {
    const double metres = RoundLengthUpTo(longest / scale / kMillimetresOfAMetre);
    const double length = metres * kMillimetresOfAMetre * scale;
    svg.Line(at, {at.x + length, at.y}, {kBlack, 0.5});
    for (const double end : {0.0, length})
        svg.Line({at.x + end, at.y - 0.9}, {at.x + end, at.y + 0.9}, {kBlack, 0.25});
    const std::string text = InputValueText(metres) + " m";
    svg.Text({at.x + length + 1.2, at.y + 0.8}, {.size = kSmallestText}, text);
    return length + 1.2 + TextWidth(text, kSmallestText);
}

void DrawAxis(Svg& svg, Point at, Point direction, const std::string& name) {
    const Point end{at.x + kArrowLength * direction.x, at.y + kArrowLength * direction.y};
    const Point across{-direction.y, direction.x};
    svg.Line(at, end, {kBlack, 0.25});
    const auto point = [&](double along, double aside) {
        return Point{end.x + along * direction.x + aside * across.x,
                     end.y + along * direction.y + aside * across.y};
    };
    svg.Polygon({point(0.6, 0.0), point(-1.2, 0.6), point(-1.2, -0.6)}, {kBlack, 0.0}, kBlack);
    const bool isLevel = std::abs(direction.x) > 0.5;
    const Point text = isLevel ? Point{end.x + 1.2, end.y + 0.8}
                               : Point{end.x - 0.8, direction.y < 0 ? end.y - 1.0 : end.y + 3.0};
    svg.Text(text, {.size = 2.4, .isBold = true}, HtmlText(name));
}

std::string LegendItem(const Svg& sample, Words meaning) {
    return Element("span", {{"class", "legend"}}, sample.Html() + " " + InBoth(meaning));
}
