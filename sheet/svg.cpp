#include "sheet/svg.h"

#include "platform/utf8_character.h"
#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/length_text.h"

using std::string_view_literals::operator""sv;

namespace {

void AppendLength(std::string& html, std::string_view name, double value) {
    html += ' ';
    html += name;
    html += "=\"";
    AppendLengthText(html, value);
    html += '"';
}

void AppendStroke(std::string& html, const Stroke& stroke) {
    if (stroke.width <= 0.0) return AppendAttribute(html, "stroke", "none");
    AppendAttribute(html, "stroke", stroke.color);
    AppendLength(html, "stroke-width", stroke.width);
    if (!stroke.dashes.empty()) AppendAttribute(html, "stroke-dasharray", stroke.dashes);
}

void AppendPoint(std::string& html, Point point) {
    AppendLengthText(html, point.x);
    html += ' ';
    AppendLengthText(html, point.y);
}

void AppendPoints(std::string& html, const std::vector<Point>& points) {
    html += " points=\"";
    for (const Point& point : points) {
        AppendPoint(html, point);
        html += ' ';
    }
    html += '"';
}

void AppendLineOfPath(std::string& html, Point from, Point to) {
    const std::string x = LengthText(to.x), y = LengthText(to.y);
    html += 'M';
    const std::size_t placeOfX = html.size();
    AppendLengthText(html, from.x);
    html += ' ';
    const std::size_t placeOfY = html.size();
    AppendLengthText(html, from.y);
    const std::string_view written = html;
    if (written.substr(placeOfY) == y) {
        html += 'H';
        html += x;
    } else if (written.substr(placeOfX, placeOfY - 1 - placeOfX) == x) {
        html += 'V';
        html += y;
    } else {
        html += 'L';
        html += x;
        html += ' ';
        html += y;
    }
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

void AppendStyle(std::string& html, const TextStyle& style) {
    AppendLength(html, "font-size", style.size);
    if (style.anchor != Anchor::kStart)
        AppendAttribute(html, "text-anchor", AnchorName(style.anchor));
    if (style.color != "#000") AppendAttribute(html, "fill", style.color);
    if (style.isBold) html += " font-weight=\"bold\"";
    if (style.hasHalo)
        html +=
            " paint-order=\"stroke\" stroke=\"#fff\" stroke-width=\"0.6\" "
            "stroke-linejoin=\"round\"";
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
    head_ += "<title>" + both(title) + "</title>";
    if (!description.ja.empty()) head_ += "<desc>" + both(description) + "</desc>";
    head_ += '\n';
}

void Svg::Line(Point from, Point to, const Stroke& stroke) {
    body_ += "<line";
    AppendLength(body_, "x1", from.x);
    AppendLength(body_, "y1", from.y);
    AppendLength(body_, "x2", to.x);
    AppendLength(body_, "y2", to.y);
    End(stroke);
}

void Svg::Polyline(const std::vector<Point>& points, const Stroke& stroke) {
    body_ += "<polyline fill=\"none\"";
    AppendPoints(body_, points);
    End(stroke);
}

void Svg::Lines(const std::vector<std::pair<Point, Point>>& lines, const Stroke& stroke) {
    if (lines.empty()) return;
    body_ += "<path fill=\"none\" d=\"";
    for (const auto& [from, to] : lines)
        AppendLineOfPath(body_, from, to);
    body_ += '"';
    End(stroke);
}

void Svg::Squares(const std::vector<Point>& centers, double half, std::string_view fill) {
    if (centers.empty()) return;
    const std::string side = LengthText(2.0 * half);
    const std::string square = Concat({"h", side, "v", side, "h-", side, "z"});
    body_ += "<path";
    AppendAttribute(body_, "fill", fill);
    body_ += " d=\"";
    for (const Point& center : centers) {
        body_ += 'M';
        AppendPoint(body_, {center.x - half, center.y - half});
        body_ += square;
    }
    body_ += "\"/>\n";
}

void Svg::Box(const Rectangle& box, const Stroke& stroke, std::string_view fill) {
    body_ += "<rect";
    AppendLength(body_, "x", box.left);
    AppendLength(body_, "y", box.top);
    AppendLength(body_, "width", box.Width());
    AppendLength(body_, "height", box.Height());
    AppendAttribute(body_, "fill", fill);
    End(stroke);
}

void Svg::Circle(Point center, double radius, const Stroke& stroke, std::string_view fill) {
    body_ += "<circle";
    AppendLength(body_, "cx", center.x);
    AppendLength(body_, "cy", center.y);
    AppendLength(body_, "r", radius);
    AppendAttribute(body_, "fill", fill);
    End(stroke);
}

void Svg::Ellipse(Point center, double radiusX, double radiusY, const Stroke& stroke) {
    body_ += "<ellipse fill=\"none\"";
    AppendLength(body_, "cx", center.x);
    AppendLength(body_, "cy", center.y);
    AppendLength(body_, "rx", radiusX);
    AppendLength(body_, "ry", radiusY);
    End(stroke);
}

void Svg::Polygon(const std::vector<Point>& points, const Stroke& stroke, std::string_view fill) {
    body_ += "<polygon";
    AppendPoints(body_, points);
    AppendAttribute(body_, "fill", fill);
    End(stroke);
}

void Svg::End(const Stroke& stroke) {
    AppendStroke(body_, stroke);
    body_ += "/>\n";
}

void Svg::Text(Point at, const TextStyle& style, std::string_view html) {
    body_ += "<text";
    AppendLength(body_, "x", at.x);
    AppendLength(body_, "y", at.y);
    AppendStyle(body_, style);
    for (const std::string_view part : {">"sv, html, "</text>\n"sv})
        body_ += part;
}

void Svg::Texts(const std::vector<PlacedText>& texts, const TextStyle& style) {
    if (texts.empty()) return;
    body_ += "<g";
    AppendStyle(body_, style);
    body_ += '>';
    for (const auto& [at, html] : texts) {
        body_ += "<text x=\"";
        AppendLengthText(body_, at.x);
        body_ += "\" y=\"";
        AppendLengthText(body_, at.y);
        body_ += "\">";
        body_ += html;
        body_ += "</text>";
    }
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
    return Concat({head_, body_, "</svg>"});
}

void Svg::AppendHtml(std::string& html) const {
    html += head_;
    html += body_;
    html += "</svg>";
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
