#include "sheet/svg.h"

#include "platform/utf8_character.h"
#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/length_text.h"

namespace {

std::string Attribute(std::string_view name, std::string_view value) {
    return Concat({" ", name, "=\"", value, "\""});
}

std::string Length(std::string_view name, double value) {
    return Attribute(name, LengthText(value));
}

std::string StrokeAttributes(const Stroke& stroke) {
    if (stroke.width <= 0.0) return " stroke=\"none\"";
    std::string html = Attribute("stroke", stroke.color) + Length("stroke-width", stroke.width);
    if (!stroke.dashes.empty()) html += Attribute("stroke-dasharray", stroke.dashes);
    return html;
}

std::string Coordinates(Point point) {
    return LengthText(point.x) + " " + LengthText(point.y);
}

std::string LineOfPath(Point from, Point to) {
    const std::string start = Concat({"M", Coordinates(from)});
    const std::string x = LengthText(to.x), y = LengthText(to.y);
    if (y == LengthText(from.y)) return Concat({start, "H", x});
    if (x == LengthText(from.x)) return Concat({start, "V", y});
    return Concat({start, "L", x, " ", y});
}

std::string_view AnchorName(Anchor anchor) {
    switch (anchor) {
        case Anchor::kStart:
            return "start";
        case Anchor::kMiddle:
            return "middle";
        case Anchor::kEnd:
            return "end";
    }
    return {};
}

std::string StyleAttributes(const TextStyle& style) {
    std::string html = Length("font-size", style.size);
    if (style.anchor != Anchor::kStart) html += Attribute("text-anchor", AnchorName(style.anchor));
    if (style.color != "#000") html += Attribute("fill", style.color);
    if (style.isBold) html += " font-weight=\"bold\"";
    if (style.hasHalo)
        html +=
            " paint-order=\"stroke\" stroke=\"#fff\" stroke-width=\"0.6\" "
            "stroke-linejoin=\"round\"";
    return html;
}

std::string Span(std::string_view cssClass, std::string_view text) {
    return "<tspan class=\"" + std::string(cssClass) + "\">" + HtmlOfDrawnText(text) + "</tspan>";
}

}  // namespace

Svg::Svg(double width, double height, Words title, Words description)
    : width_(width), height_(height) {
    const std::string w = LengthText(width), h = LengthText(height);
    head_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" role=\"img\" width=\"" + w +
            "mm\" height=\"" + h + "mm\" viewBox=\"0 0 " + w + " " + h + "\">";
    const auto both = [](Words words) {
        return HtmlText(std::string(words.ja) + " / " + std::string(words.en), 2000);
    };
    head_ += "<title>" + both(title) + "</title><desc>" + both(description) + "</desc>\n";
}

void Svg::Line(Point from, Point to, const Stroke& stroke) {
    body_ += "<line" + Length("x1", from.x) + Length("y1", from.y) + Length("x2", to.x) +
             Length("y2", to.y) + StrokeAttributes(stroke) + "/>\n";
}

void Svg::Polyline(const std::vector<Point>& points, const Stroke& stroke) {
    body_ += "<polyline fill=\"none\" points=\"";
    for (const Point& point : points)
        body_ += Coordinates(point) + " ";
    body_ += Concat({"\"", StrokeAttributes(stroke), "/>\n"});
}

void Svg::Lines(const std::vector<std::pair<Point, Point>>& lines, const Stroke& stroke) {
    if (lines.empty()) return;
    body_ += "<path fill=\"none\" d=\"";
    for (const auto& [from, to] : lines)
        body_ += LineOfPath(from, to);
    body_ += Concat({"\"", StrokeAttributes(stroke), "/>\n"});
}

void Svg::Squares(const std::vector<Point>& centers, double half, std::string_view fill) {
    if (centers.empty()) return;
    const std::string side = LengthText(2.0 * half);
    const std::string square = Concat({"h", side, "v", side, "h-", side, "z"});
    body_ += Concat({"<path", Attribute("fill", fill), " d=\""});
    for (const Point& center : centers)
        body_ += Concat({"M", Coordinates({center.x - half, center.y - half}), square});
    body_ += "\"/>\n";
}

void Svg::Box(const Rectangle& box, const Stroke& stroke, std::string_view fill) {
    body_ += "<rect" + Length("x", box.left) + Length("y", box.top) + Length("width", box.Width()) +
             Length("height", box.Height()) + Attribute("fill", fill) + StrokeAttributes(stroke) +
             "/>\n";
}

void Svg::Circle(Point center, double radius, const Stroke& stroke, std::string_view fill) {
    body_ += "<circle" + Length("cx", center.x) + Length("cy", center.y) + Length("r", radius) +
             Attribute("fill", fill) + StrokeAttributes(stroke) + "/>\n";
}

void Svg::Ellipse(Point center, double radiusX, double radiusY, const Stroke& stroke) {
    body_ += "<ellipse fill=\"none\"" + Length("cx", center.x) + Length("cy", center.y) +
             Length("rx", radiusX) + Length("ry", radiusY) + StrokeAttributes(stroke) + "/>\n";
}

void Svg::Polygon(const std::vector<Point>& points, const Stroke& stroke, std::string_view fill) {
    body_ += "<polygon points=\"";
    for (const Point& point : points)
        body_ += Coordinates(point) + " ";
    body_ += Concat({"\"", Attribute("fill", fill), StrokeAttributes(stroke), "/>\n"});
}

void Svg::Text(Point at, const TextStyle& style, std::string_view html) {
    body_ += Concat({"<text", Length("x", at.x), Length("y", at.y), StyleAttributes(style), ">",
                     html, "</text>\n"});
}

void Svg::Texts(const std::vector<PlacedText>& texts, const TextStyle& style) {
    if (texts.empty()) return;
    body_ += Concat({"<g", StyleAttributes(style), ">"});
    for (const auto& [at, html] : texts)
        body_ += Concat({"<text", Length("x", at.x), Length("y", at.y), ">", html, "</text>"});
    body_ += "</g>\n";
}

void Svg::Open(std::string_view attributes) {
    body_ += "<g";
    body_ += attributes;
    body_ += ">\n";
}

void Svg::Close() {
    body_ += "</g>\n";
}

std::string Svg::Html() const {
    return head_ + body_ + "</svg>";
}

std::string DrawnInBoth(Words words) {
    if (words.ja == words.en) return HtmlOfDrawnText(words.ja);
    return Span("ja", words.ja) + Span("both", " / ") + Span("en", words.en);
}

std::string DrawnInOne(Words words) {
    if (words.ja == words.en) return HtmlOfDrawnText(words.ja);
    return Span("ja", words.ja) + Span("en-alone", words.en);
}

std::string DrawnSymbol(std::string_view symbol, std::string_view index) {
    return HtmlOfDrawnText(std::string(symbol) + "_{" + std::string(index) + "}");
}

double TextWidth(std::string_view text, double size) {
    double width = 0.0;
    while (!text.empty()) {
        const auto [character, length] = FirstUtf8Character(text);
        text.remove_prefix(length);
        if (character >= 0x2190)
            width += 1.0;  // symbols, Chinese characters and Japanese syllables fill a square
        else if (character == ' ' || character == ',' || character == '.' || character == ':')
            width += 0.32;
        else if (character >= 'A' && character <= 'Z')
            width += 0.72;
        else
            width += 0.6;
    }
    return width * size;
}

std::string FittingText(std::string_view text, double size, double room) {
    if (TextWidth(text, size) <= room) return std::string(text);
    std::string fitting;
    while (!text.empty()) {
        const std::size_t length = FirstUtf8Character(text).size;
        const std::string longer = fitting + std::string(text.substr(0, length));
        if (TextWidth(longer + "…", size) > room) break;
        fitting = longer;
        text.remove_prefix(length);
    }
    return fitting + "…";
}
