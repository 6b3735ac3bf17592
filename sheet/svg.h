#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sheet/words.h"

// Drawings within the page. All lengths are mm on paper; y grows downwards.

struct Point {
    double x = 0.0;
    double y = 0.0;
};

struct Rectangle {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    double Width() const { return right - left; }
    double Height() const { return bottom - top; }
    bool Overlaps(const Rectangle& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    Rectangle Grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
};

struct Stroke {
    std::string_view color = "#000";
    double width = 0.2;
    std::string_view dashes = {};  ///< as stroke-dasharray has them
};

enum class Anchor { kStart, kMiddle, kEnd };

struct TextStyle {
    double size = 2.3;
    Anchor anchor = Anchor::kStart;
    std::string_view color = "#000";
    bool isBold = false;
    bool hasHalo = false;  ///< white behind the letters, where lines pass
};

/// A drawing. What is drawn later lies above.
class Svg {
public:
    /// `title` and `description` are for readers who do not see it. A sample that stands beside
    /// what it means has no description.
    Svg(double width, double height, Words title, Words description);

    double Width() const { return width_; }
    double Height() const { return height_; }

    void Line(Point from, Point to, const Stroke& stroke);
    void Polyline(const std::vector<Point>& points, const Stroke& stroke);

    /// Many lines of one kind as one element.
    void Lines(const std::vector<std::pair<Point, Point>>& lines, const Stroke& stroke);

    /// Many filled squares of one kind as one element; `half` a side.
    void Squares(const std::vector<Point>& centers, double half, std::string_view fill);

    /// `fill` "none" leaves the inside as it is.
    void Box(const Rectangle& box, const Stroke& stroke, std::string_view fill);
    void Circle(Point center, double radius, const Stroke& stroke, std::string_view fill);
    void Ellipse(Point center, double radiusX, double radiusY, const Stroke& stroke);
    void Polygon(const std::vector<Point>& points, const Stroke& stroke, std::string_view fill);

    /// `y` is the base line. `html` comes from HtmlText, or from the functions below.
    void Text(Point at, const TextStyle& style, std::string_view html);

    /// Many texts of one kind.
    struct PlacedText {
        Point at;
        std::string html;
    };
    void Texts(const std::vector<PlacedText>& texts, const TextStyle& style);

    /// A group with attributes, as in ` data-mark="G"`.
    void Open(std::string_view attributes);
    void Close();

    std::string Html() const;

    /// The same, added to HTML.
    void AppendHtml(std::string& html) const;

private:
    void End(const Stroke& stroke);

    double width_;
    double height_;
    std::string head_;
    std::string body_;
};

/// Words in a drawing: the Japanese ones, a slash, the English ones.
std::string DrawnInBoth(Words words);

/// Japanese words where Japanese is shown, else the English ones.
std::string DrawnInOne(Words words);

/// A symbol with an index: "e" and "X".
std::string DrawnSymbol(std::string_view symbol, std::string_view index);

/// How wide a text is at most, mm: an estimate that suits the fonts of the page.
double TextWidth(std::string_view text, double size);

/// As much of a text as fits into `room`, mm; one that is cut ends with "…".
std::string FittingText(std::string_view text, double size, double room);
