#include "sheet/plan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "report/number_text.h"
#include "route2/node_table.h"
#include "route2/tolerances.h"
#include "sheet/concat.h"
#include "sheet/drawing_parts.h"
#include "sheet/html.h"
#include "sheet/label_places.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

constexpr double kPlanWidth = 84.0;
constexpr double kGreatestPlanHeight = 70.0;
constexpr double kMargin = 8.0;      // about the building
constexpr double kFoot = 7.5;        // scale bar and axes
constexpr double kGridHead = 4.5;    // names of grid lines
constexpr double kMemberMark = 1.0;  // half a story member's square, where there is room
constexpr double kSmallestMark = 0.5;
constexpr double kLongestBar = 7.0;  // where there is room
constexpr double kShortestBar = 3.0;
constexpr double kBarWidth = 0.9;
constexpr double kBraceAside = 0.5;
constexpr std::size_t kLongestGridName = 6;  // characters
constexpr double kCenter = 1.3;              // radius of the mark of a centre
constexpr double kLabelSize = 2.2;
constexpr double kDistanceSize = 2.4;
constexpr std::size_t kMostNamed = 40;
constexpr std::size_t kNamedOfMany = 5;
// A centre farther outside than this share of the plan's size is shown at the edge.
constexpr double kFarthestCenter = 0.6;

struct PlanArea {
    double lowX = 0.0, highX = 0.0, lowV = 0.0, highV = 0.0;
    bool isEmpty = true;

    void Include(double x, double v) {
        if (!std::isfinite(x) || !std::isfinite(v)) return;
        lowX = isEmpty ? x : std::min(lowX, x);
        highX = isEmpty ? x : std::max(highX, x);
        lowV = isEmpty ? v : std::min(lowV, v);
        highV = isEmpty ? v : std::max(highV, v);
        isEmpty = false;
    }
    double WidthX() const { return highX - lowX; }
    double WidthV() const { return highV - lowV; }
};

// --- Scale ---------------------------------------------------------------------------------------

// Of all plans: where the building lies, and how it comes onto the paper.
struct PlanScale {
    PlanArea building;
    PlanArea shown;       ///< the building and the centres near it
    double scale = 1.0;   ///< mm on paper per mm
    double height = 0.0;  ///< of a drawing
    double top = 0.0;
    bool secondGoesUp = true;

    double X(double x) const {
        const double used = shown.WidthX() * scale;
        return (kPlanWidth - used) / 2.0 + (x - shown.lowX) * scale;
    }
    double Y(double v) const {
        return top + kMargin + (secondGoesUp ? shown.highV - v : v - shown.lowV) * scale;
    }
    Point At(double x, double v) const { return {X(x), Y(v)}; }
    double Bottom() const { return top + 2.0 * kMargin + shown.WidthV() * scale; }
};

PlanArea AreaOfBuilding(const Findings& findings) {
    PlanArea area;
    for (const ModelMember& member : findings.members)
        for (const auto& node : {member.start, member.end})
            if (node)
                area.Include(findings.nodes[*node].point.x,
                             PlanZ(findings.nodes[*node].point, findings.zIsVertical));
    return area;
}

// The building and the centres, but those that lie far outside.
PlanArea AreaShown(const Findings& findings, const PlanArea& building) {
    PlanArea area = building;
    const double reach = kFarthestCenter * std::max(building.WidthX(), building.WidthV());
    for (const StoryFindings& story : findings.stories)
        for (const auto* center : {&story.gravityCenter, &story.rigidityCenter}) {
            const double x = (*center)[kX].value_or(building.lowX);
            const double v = (*center)[kZ].value_or(building.lowV);
            area.Include(std::clamp(x, building.lowX - reach, building.highX + reach),
                         std::clamp(v, building.lowV - reach, building.highV + reach));
        }
    return area;
}

PlanScale ScaleFor(const Sheet& sheet) {
    PlanScale plan;
    plan.secondGoesUp = sheet.findings.zIsVertical;
    plan.building = AreaOfBuilding(sheet.findings);
    plan.shown = AreaShown(sheet.findings, plan.building);
    const bool hasGrid = !sheet.content.sheetLines.gridX.empty();
    plan.top = hasGrid ? kGridHead : 0.0;
    const double roomX = kPlanWidth - 2.0 * kMargin;
    const double roomV = kGreatestPlanHeight - 2.0 * kMargin - kFoot - plan.top;
    plan.scale = std::min(roomX / std::max(plan.shown.WidthX(), 1000.0),
                          roomV / std::max(plan.shown.WidthV(), 1000.0));
    plan.height = plan.Bottom() + kFoot;
    return plan;
}

// A level member, where it lies on the page.
struct Beam {
    Point from;
    Point to;
    double levelOfFrom = 0.0;  ///< mm
    double levelOfTo = 0.0;

    bool IsAt(double level) const {
        return std::abs(levelOfFrom - level) < kSameLevel &&
               std::abs(levelOfTo - level) < kSameLevel;
    }
};

std::vector<Beam> BeamsOf(const Findings& findings, const PlanScale& plan) {
    std::vector<Beam> beams;
    const bool z = findings.zIsVertical;
    for (const ModelMember& member : findings.members) {
        if (!member.start || !member.end) continue;
        const Vec3& a = findings.nodes[*member.start].point;
        const Vec3& b = findings.nodes[*member.end].point;
        if (std::abs(Vertical(a, z) - Vertical(b, z)) < 2.0 * kSameLevel)
            beams.push_back({plan.At(a.x, PlanZ(a, z)), plan.At(b.x, PlanZ(b, z)), Vertical(a, z),
                             Vertical(b, z)});
    }
    return beams;
}

// --- One plan ------------------------------------------------------------------------------------

class Plan {
public:
    Plan(const Sheet& sheet, const PlanScale& plan, const std::vector<Beam>& beams,
         const StoryFindings& story)
        : sheet_(sheet),
          findings_(sheet.findings),
          plan_(plan),
          beams_(beams),
          story_(story),
          spacing_(Spacing()),
          mark_(std::clamp(0.3 * spacing_, kSmallestMark, kMemberMark)),
          bar_(std::clamp(0.8 * spacing_, kShortestBar, kLongestBar)),
          svg_(kPlanWidth, plan.height, Title(), Text("plan description")),
          places_({0.5, 0.5, kPlanWidth - 0.5, plan.Bottom()}) {}

    void AppendHtml(std::string& html) {
        DrawBox();
        DrawGrid();
        DrawBeams();
        DrawEllipse();
        DrawGridNames();
        DrawStiffness();
        DrawLeaning();
        DrawNotCounted();
        DrawUpright();
        DrawPath();
        DrawCenters();
        DrawDistances();
        DrawNumbers();
        DrawFoot();
        svg_.AppendHtml(html);
    }

private:
    // The smallest distance on the page between two upright members, along either axis.
    double Spacing() const {
        std::array<std::vector<long>, 2> lines;  // tenths
        for (const MemberFindings& member : story_.members) {
            if (!member.upright) continue;
            const Point at = plan_.At(member.x, member.v);
            lines[kX].push_back(std::lround(10.0 * at.x));
            lines[kZ].push_back(std::lround(10.0 * at.y));
        }
        double smallest = kPlanWidth;
        for (auto& along : lines) {
            std::ranges::sort(along);
            for (std::size_t i = 1; i < along.size(); ++i) {
                const double apart = static_cast<double>(along[i] - along[i - 1]) / 10.0;
                if (apart > 0.5) smallest = std::min(smallest, apart);
            }
        }
        return smallest;
    }

    FilledWords Title() const {
        return Filled(Text("plan title"), {{"story", sheet_.names.Story(story_.number)}});
    }

    const DirectionFindings& X() const { return story_.directions[kX]; }
    const DirectionFindings& Second() const { return story_.directions[kZ]; }

    std::optional<Point> CenterOf(const std::array<Figure, 2>& center) const {
        if (!center[kX] || !center[kZ]) return std::nullopt;
        return plan_.At(*center[kX], *center[kZ]);
    }
    std::optional<Point> G() const { return CenterOf(story_.gravityCenter); }
    std::optional<Point> R() const { return CenterOf(story_.rigidityCenter); }

    bool IsOnPaper(Point at) const {
        return at.x > 1.0 && at.x < kPlanWidth - 1.0 && at.y > 1.0 && at.y < plan_.Bottom() - 1.0;
    }

    // Where the centre of gravity must lie: 0.15 times the elastic radii about the centre of
    // rigidity, each along the axis across its direction.
    std::optional<Rectangle> AllowedBox() const {
        const auto r = R();
        if (!r || !X().elasticRadius || !Second().elasticRadius) return std::nullopt;
        const double alongX = kCodeEccentricityModulus * *Second().elasticRadius * plan_.scale;
        const double alongV = kCodeEccentricityModulus * *X().elasticRadius * plan_.scale;
        return Rectangle{r->x - alongX, r->y - alongV, r->x + alongX, r->y + alongV};
    }

    void DrawBox() {
        const auto box = AllowedBox();
        if (box) svg_.Box(*box, {kBlue, 0.3}, kLightBlue);
    }

    // Grid lines that cross the drawing, with the place of each on the page.
    std::vector<std::pair<double, const GridLine*>> GridLines(std::size_t axis) const {
        const SheetLines& lines = sheet_.content.sheetLines;
        std::vector<std::pair<double, const GridLine*>> drawn;
        for (const GridLine& line : axis == kX ? lines.gridX : lines.gridSecond) {
            const double at = axis == kX ? plan_.X(line.at) : plan_.Y(line.at);
            const double low = axis == kX ? 1.0 : plan_.top;
            const double high = axis == kX ? kPlanWidth - 1.0 : plan_.Bottom();
            if (at >= low && at <= high) drawn.emplace_back(at, &line);
        }
        return drawn;
    }

    void DrawGrid() {
        std::vector<std::pair<Point, Point>> lines;
        for (const auto& [x, line] : GridLines(kX))
            lines.push_back({{x, plan_.top}, {x, plan_.Bottom()}});
        for (const auto& [y, line] : GridLines(kZ))
            lines.push_back({{4.5, y}, {kPlanWidth - 1.0, y}});
        svg_.Lines(lines, {"#999", 0.15, "3 0.8 0.5 0.8"});
    }

    void DrawGridNames() {
        std::vector<Svg::PlacedText> above, aside;
        for (const auto& [x, line] : GridLines(kX))
            above.push_back({{x, plan_.top - 1.0}, HtmlText(line->name, kLongestGridName)});
        for (const auto& [y, line] : GridLines(kZ)) {
            aside.push_back({{0.4, y + 0.8}, HtmlText(line->name, kLongestGridName)});
            places_.Occupy(
                LabelBox(aside.back().at, TextWidth(line->name, kLabelSize), kLabelSize));
        }
        svg_.Texts(above, {.size = kLabelSize, .anchor = Anchor::kMiddle, .hasHalo = true});
        svg_.Texts(aside, {.size = kLabelSize, .hasHalo = true});
    }

    // Of a text of `width` on its base line.
    static Rectangle LabelBox(Point base, double width, double size) {
        return {base.x, base.y - 0.78 * size, base.x + width, base.y + 0.12 * size};
    }

    void DrawBeams() {
        std::vector<std::pair<Point, Point>> lines;
        lines.reserve(beams_.size() / findings_.stories.size());
        for (const Beam& beam : beams_)
            if (beam.IsAt(story_.upperLevel)) lines.emplace_back(beam.from, beam.to);
        svg_.Lines(lines, {kLightGrey, 0.25});
    }

    void DrawEllipse() {
        const auto r = R();
        if (!r || !X().elasticRadius || !Second().elasticRadius) return;
        svg_.Ellipse(*r, *Second().elasticRadius * plan_.scale, *X().elasticRadius * plan_.scale,
                     {kBlue, 0.25, "1.8 1.2"});
    }

    double BarWidth() const { return kBarWidth * mark_ / kMemberMark; }

    double LargestStiffness(std::size_t axis) const {
        double largest = 0.0;
        for (const MemberFindings& member : story_.members)
            largest = std::max(largest, std::abs(member.stiffness[axis].value_or(0.0)));
        return largest;
    }

    // A bar to the right for X, upwards on the page for the second direction.
    void DrawStiffness() {
        const double largest = std::max(LargestStiffness(kX), LargestStiffness(kZ));
        if (!(largest > 0.0)) return;
        std::vector<std::pair<Point, Point>> positive, negative;
        for (const MemberFindings& member : story_.members) {
            const Point at = plan_.At(member.x, member.v);
            for (const std::size_t axis : {kX, kZ}) {
                const double stiffness = member.stiffness[axis].value_or(0.0);
                const double length = bar_ * std::abs(stiffness) / largest;
                if (length < 0.1) continue;
                const Point end = axis == kX ? Point{at.x + mark_ + length, at.y}
                                             : Point{at.x, at.y - mark_ - length};
                (stiffness < 0.0 ? negative : positive).emplace_back(at, end);
                places_.OccupyLine(at, end, BarWidth());
            }
        }
        svg_.Lines(positive, {kGreen, BarWidth()});
        svg_.Lines(negative, {kRed, BarWidth()});
    }

    struct Ends {
        Point lower;
        Point upper;
    };

    // In plan, from the model: a leaning member's two nodes lie apart.
    std::optional<Ends> EndsOf(std::int32_t number) const {
        const ModelMember* const member = sheet_.model.Find(number);
        if (member == nullptr || !member->start || !member->end) return std::nullopt;
        const bool z = findings_.zIsVertical;
        const Vec3* lower = &findings_.nodes[*member->start].point;
        const Vec3* upper = &findings_.nodes[*member->end].point;
        if (Vertical(*upper, z) < Vertical(*lower, z)) std::swap(lower, upper);
        return Ends{plan_.At(lower->x, PlanZ(*lower, z)), plan_.At(upper->x, PlanZ(*upper, z))};
    }

    // Two braces of one bay lie on each other in plan: each is moved a little to its own right.
    void DrawLeaning() {
        std::set<std::array<long, 4>> lines;
        const auto keyOf = [](Point a, Point b) {
            return std::array{std::lround(20.0 * a.x), std::lround(20.0 * a.y),
                              std::lround(20.0 * b.x), std::lround(20.0 * b.y)};
        };
        for (const MemberFindings& member : story_.members)
            if (!member.upright)
                if (const auto ends = EndsOf(member.number))
                    lines.insert(keyOf(ends->lower, ends->upper));
        for (const MemberFindings& member : story_.members) {
            if (member.upright) continue;
            const auto ends = EndsOf(member.number);
            if (!ends) continue;
            const bool hasTwin = lines.contains(keyOf(ends->upper, ends->lower));
            const Ends drawn = hasTwin ? MovedAside(*ends, kBraceAside) : *ends;
            svg_.Line(drawn.lower, drawn.upper, {kBlack, 0.6, "1.6 0.8"});
            svg_.Circle(drawn.lower, 0.8, {kBlack, 0.0}, kBlack);
            places_.OccupyLine(drawn.lower, drawn.upper, 0.7);
        }
    }

    static Ends MovedAside(const Ends& ends, double by) {
        const double dx = ends.upper.x - ends.lower.x, dy = ends.upper.y - ends.lower.y;
        const double length = std::hypot(dx, dy);
        if (length == 0.0) return ends;
        const Point aside{-dy / length * by, dx / length * by};
        return {{ends.lower.x + aside.x, ends.lower.y + aside.y},
                {ends.upper.x + aside.x, ends.upper.y + aside.y}};
    }

    void DrawNotCounted() {
        for (const MemberFindings& member : story_.cutNotCounted) {
            const Point at = plan_.At(member.x, member.v);
            const auto ends = EndsOf(member.number);
            if (!member.upright && ends)
                svg_.Line(ends->lower, ends->upper, {kRed, 0.6, "1.6 0.8"});
            const Rectangle mark{at.x - 1.2, at.y - 1.2, at.x + 1.2, at.y + 1.2};
            svg_.Box(mark, {kRed, 0.6}, "#fff");
            places_.Occupy(mark);
        }
    }

    void DrawUpright() {
        std::vector<Point> marks;
        for (const MemberFindings& member : story_.members) {
            if (!member.upright) continue;
            const Point at = plan_.At(member.x, member.v);
            marks.push_back(at);
            places_.Occupy(Rectangle{at.x, at.y, at.x, at.y}.Grown(mark_));
        }
        svg_.Squares(marks, mark_, kBlack);
    }

    // --- Centres ---

    // From the centre of rigidity to that of gravity: along X first, then across.
    void DrawPath() {
        const auto g = G(), r = R();
        if (!g || !r) return;
        const Point corner{g->x, r->y};
        svg_.Polyline({*r, corner, *g}, {kRed, 0.4});
        places_.OccupyLine(*r, corner, 0.4);
        places_.OccupyLine(corner, *g, 0.4);
    }

    void DrawCenters() {
        if (const auto r = R()) DrawCenter(*r, "R", story_.rigidityCenter);
        if (const auto g = G()) DrawCenter(*g, "G", story_.gravityCenter);
    }

    void DrawCenter(Point at, const std::string& name, const std::array<Figure, 2>& center) {
        svg_.Open(" data-mark=\"" + name + "\" data-story=\"" + std::to_string(story_.number) +
                  "\"");
        if (!IsOnPaper(at)) {
            DrawFarCenter(at, name, center);
        } else if (name == "G") {
            svg_.Circle(at, kCenter, {kBlack, 0.35}, "#fff");
            svg_.Lines({{{at.x - kCenter, at.y}, {at.x + kCenter, at.y}},
                        {{at.x, at.y - kCenter}, {at.x, at.y + kCenter}}},
                       {kBlack, 0.35});
        } else {
            constexpr double kArm = 1.2;
            svg_.Lines({{{at.x - kArm, at.y - kArm}, {at.x + kArm, at.y + kArm}},
                        {{at.x - kArm, at.y + kArm}, {at.x + kArm, at.y - kArm}}},
                       {kBlack, 0.55});
        }
        if (IsOnPaper(at)) {
            places_.Occupy(Rectangle{at.x, at.y, at.x, at.y}.Grown(kCenter));
            NameCenter(at, name);
        }
        svg_.Close();
    }

    void NameCenter(Point at, const std::string& name) {
        constexpr double kSize = 3.0;
        const double width = TextWidth(name, kSize), far = kCenter + 0.5;
        std::vector<Rectangle> candidates;
        for (const Point base :
             {Point{at.x + far, at.y - far + 0.4}, Point{at.x - far - width, at.y - far + 0.4},
              Point{at.x + far, at.y + far + 1.8}, Point{at.x - far - width, at.y + far + 1.8},
              Point{at.x - width / 2.0, at.y - far - 0.4},
              Point{at.x - width / 2.0, at.y + far + 2.4}, Point{at.x + far + 2.0, at.y + 1.0},
              Point{at.x - far - width - 2.0, at.y + 1.0}})
            candidates.push_back(LabelBox(base, width, kSize));
        const Rectangle box = places_.Take(candidates);
        svg_.Text({box.left, box.bottom - 0.12 * kSize},
                  {.size = kSize, .isBold = true, .hasHalo = true}, name);
    }

    // A centre that lies beyond the drawing: an arrow at the edge, with its coordinates.
    void DrawFarCenter(Point at, const std::string& name, const std::array<Figure, 2>& center) {
        const Point edge{std::clamp(at.x, 3.0, kPlanWidth - 3.0),
                         std::clamp(at.y, 3.0, plan_.Bottom() - 3.0)};
        const double angle = std::atan2(at.y - edge.y, at.x - edge.x);
        const auto turned = [&](double along, double aside) {
            return Point{edge.x + along * std::cos(angle) - aside * std::sin(angle),
                         edge.y + along * std::sin(angle) + aside * std::cos(angle)};
        };
        svg_.Polygon({turned(2.0, 0), turned(-1.2, 1.3), turned(-1.2, -1.3)}, {kBlack, 0.3},
                     "#fff");
        const std::string text = name + " (" + NumberText(center[kX], kCoordinateFormat) + ", " +
                                 NumberText(center[kZ], kCoordinateFormat) + ")";
        const double width = TextWidth(text, kLabelSize);
        const double x = std::clamp(edge.x - width / 2.0, 1.0, kPlanWidth - 1.0 - width);
        const double y = edge.y > plan_.Bottom() / 2.0 ? edge.y - 3.0 : edge.y + 4.6;
        const Rectangle box = places_.Take(std::array{LabelBox({x, y}, width, kLabelSize)});
        svg_.Text({box.left, box.bottom - 0.12 * kLabelSize},
                  {.size = kLabelSize, .isBold = true, .hasHalo = true}, HtmlText(text));
    }

    // The eccentricities, each beside its step of the path.
    void DrawDistances() {
        const auto g = G(), r = R();
        if (!g || !r || !IsOnPaper(*g) || !IsOnPaper(*r)) return;
        const Point corner{g->x, r->y};
        DrawDistance(kZ, {(r->x + corner.x) / 2.0, r->y}, true);
        DrawDistance(kX, {g->x, (g->y + corner.y) / 2.0}, false);
    }

    // Where the text of a distance may stand: beside its step, else around the box in which G must
    // lie, farther and farther away.
    std::vector<Rectangle> DistancePlaces(Point middle, bool isLevel,
                                          const std::string& measured) const {
        const double width = TextWidth(measured, kDistanceSize);
        std::vector<Rectangle> places;
        places.reserve(100);
        const auto add = [&](double x, double y) {
            places.push_back(LabelBox({x, y}, width, kDistanceSize));
        };
        if (isLevel) {
            add(middle.x - width / 2.0, middle.y + 3.0);
            add(middle.x - width / 2.0, middle.y - 1.0);
        } else {
            add(middle.x + 1.0, middle.y + 0.9);
            add(middle.x - width - 1.0, middle.y + 0.9);
        }
        const Rectangle about =
            AllowedBox().value_or(Rectangle{middle.x, middle.y, middle.x, middle.y}.Grown(4.0));
        for (const double away : {0.7, 2.0, 3.6, 5.4, 7.6}) {
            for (const double y : {about.bottom + 1.9 + away, about.top - away})
                for (const double x : {middle.x - width / 2.0, about.left, about.right - width,
                                       about.left - width / 2.0, about.right - width / 2.0})
                    add(x, y);
            for (const double y : {middle.y + 0.9, middle.y - 2.0, middle.y + 3.8, middle.y - 4.4})
                for (const double x : {about.right + away, about.left - away - width})
                    add(x, y);
        }
        return places;
    }

    void DrawDistance(std::size_t axis, Point middle, bool isLevel) {
        const std::string index = sheet_.names.Direction(axis);
        const std::string value =
            NumberText(story_.directions[axis].eccentricity, kCoordinateFormat);
        const Rectangle place = places_.Take(DistancePlaces(middle, isLevel, "e_X=" + value));
        svg_.Text({place.left, place.bottom - 0.12 * kDistanceSize},
                  {.size = kDistanceSize, .color = kRed, .isBold = true, .hasHalo = true},
                  DrawnSymbol("e", index) + "=" + HtmlText(value));
    }

    // --- Numbers ---

    std::vector<const MemberFindings*> Named() const {
        std::vector<const MemberFindings*> all;
        for (const MemberFindings& member : story_.members)
            all.push_back(&member);
        if (all.size() <= kMostNamed) return all;
        const auto stiffness = [](const MemberFindings* member) {
            return std::max(std::abs(member->stiffness[kX].value_or(0.0)),
                            std::abs(member->stiffness[kZ].value_or(0.0)));
        };
        std::vector<const MemberFindings*> named = all;
        std::ranges::stable_sort(
            named, [&](const auto* a, const auto* b) { return stiffness(a) > stiffness(b); });
        named.resize(kNamedOfMany);
        for (const MemberFindings* const member : all) {
            const bool isNamed = std::ranges::find(named, member) != named.end();
            if (!WorstMark(member->number).empty() && !isNamed) named.push_back(member);
        }
        return named;
    }

    // Says that the member is the worst upright one of a direction.
    std::string WorstMark(std::int32_t number) const {
        std::string mark;
        if (X().worstUpright.member == number) mark += "▲";
        if (Second().worstUpright.member == number) mark += "►";
        return mark;
    }

    void DrawNumbers() {
        std::vector<std::int32_t> done;  // few
        std::vector<Svg::PlacedText> plain, worst;
        const auto place = [&](const MemberFindings& member) {
            if (std::ranges::find(done, member.number) != done.end()) return;
            done.push_back(member.number);
            const bool isWorst = !WorstMark(member.number).empty();
            (isWorst ? worst : plain).push_back(PlaceNumber(member));
        };
        for (const MemberFindings* const member : Named())
            place(*member);
        if (story_.cutNotCounted.size() <= kMostNamed)
            for (const MemberFindings& member : story_.cutNotCounted)
                place(member);
        svg_.Texts(plain, {.size = kLabelSize, .color = "#333", .hasHalo = true});
        svg_.Texts(worst, {.size = kLabelSize, .isBold = true, .hasHalo = true});
    }

    Svg::PlacedText PlaceNumber(const MemberFindings& member) {
        const std::string text = WorstMark(member.number) + IdentifierText(member.number);
        const double width = TextWidth(text, kLabelSize);
        Point at = plan_.At(member.x, member.v);
        if (!member.upright)
            // Beside its lower third: two braces of one bay cross.
            if (const auto ends = EndsOf(member.number))
                at = {at.x + 0.3 * (ends->upper.x - at.x), at.y + 0.3 * (ends->upper.y - at.y)};
        const double left = at.x - width - 1.3, right = at.x + 1.3, middle = at.x - width / 2.0;
        const auto label = [width](double x, double y) {
            return LabelBox({x, y}, width, kLabelSize);
        };
        const Rectangle box = places_.Take(std::array{
            label(right, at.y + 2.9), label(left, at.y + 2.9), label(middle, at.y + 3.4),
            label(left, at.y - 1.5), label(right, at.y - 1.5), label(left - 0.3, at.y + 0.8),
            label(right + 0.3, at.y + 0.8), label(middle, at.y - 2.0), label(middle, at.y + 5.6),
            label(right, at.y + 5.2), label(left, at.y + 5.2)});
        return {{box.left, box.bottom - 0.12 * kLabelSize}, HtmlText(text)};
    }

    void DrawFoot() {
        const double y = plan_.height - 2.4;
        svg_.Box({-1.0, plan_.Bottom(), kPlanWidth + 1.0, plan_.height + 1.0}, {kBlack, 0.0},
                 "#fff");
        double x = 2.0 + DrawScaleBar(svg_, {2.0, y}, plan_.scale, 25.0) + 5.0;
        DrawAxis(svg_, {x, y}, {1.0, 0.0}, "X");
        x += 14.0;
        const std::string second = sheet_.names.Direction(kZ);
        if (plan_.secondGoesUp)
            DrawAxis(svg_, {x, y + 1.4}, {0.0, -0.62}, "");
        else
            DrawAxis(svg_, {x, y - 3.0}, {0.0, 0.62}, "");
        svg_.Text({x + 1.4, y + 0.8}, {.size = 2.4, .isBold = true}, second);
    }

    const Sheet& sheet_;
    const Findings& findings_;
    const PlanScale& plan_;
    const std::vector<Beam>& beams_;
    const StoryFindings& story_;
    double spacing_;  // mm
    double mark_;     // half a story member's square, mm
    double bar_;      // of the greatest stiffness, mm
    Svg svg_;
    LabelPlaces places_;
};

// --- Around the drawings -------------------------------------------------------------------------

std::string CaptionOf(const Sheet& sheet, const StoryFindings& story) {
    std::string html = "<b>" + InBoth(sheet.names.Story(story.number)) + "</b>";
    for (const std::size_t axis : {kX, kZ}) {
        const DirectionFindings& direction = story.directions[axis];
        const auto figure = [&](std::string_view key, std::string_view text) {
            return "<span" + FigureAttributes({key, story.number, axis, {}}) + ">" +
                   std::string(text) + "</span>";
        };
        html += " \u2002R<sub>e</sub> " + sheet.names.Direction(axis) + " " +
                figure("eccentricityModulus",
                       JudgedText(direction.eccentricityModulus, kModulusFormat,
                                  kCodeEccentricityModulus, direction.eccentricityCode)) +
                " <b>" + figure("eccentricityCode", TextInSheet(direction.eccentricityCode)) +
                "</b>";
    }
    return html;
}

std::string PlanLegend() {
    const auto sample = [](double width) { return Svg(width, 3.0, {"記号", "mark"}, {"", ""}); };
    Svg upright = sample(9), leaning = sample(9), notCounted = sample(3), box = sample(5),
        ellipse = sample(8), g = sample(3), r = sample(3), worst = sample(6);
    upright.Line({1.2, 1.9}, {6.0, 1.9}, {kGreen, kBarWidth});
    upright.Box({0.2, 0.9, 2.2, 2.9}, {kBlack, 0.0}, kBlack);
    leaning.Line({0.9, 1.5}, {9.0, 1.5}, {kBlack, 0.7, "1.6 0.8"});
    leaning.Circle({0.9, 1.5}, 0.9, {kBlack, 0.0}, kBlack);
    notCounted.Box({0.4, 0.4, 2.6, 2.6}, {kRed, 0.6}, "#fff");
    box.Box({0.3, 0.3, 4.7, 2.7}, {kBlue, 0.3}, kLightBlue);
    ellipse.Ellipse({4.0, 1.5}, 3.8, 1.3, {kBlue, 0.25, "1.8 1.2"});
    g.Circle({1.5, 1.5}, kCenter, {kBlack, 0.35}, "#fff");
    g.Lines({{{0.2, 1.5}, {2.8, 1.5}}, {{1.5, 0.2}, {1.5, 2.8}}}, {kBlack, 0.35});
    r.Lines({{{0.4, 0.4}, {2.6, 2.6}}, {{0.4, 2.6}, {2.6, 0.4}}}, {kBlack, 0.55});
    worst.Text({0.0, 2.4}, {.size = 2.4}, "▲ ►");
    return "<p class=\"legends\">" + LegendItem(upright, Text("legend upright")) +
           LegendItem(leaning, Text("legend leaning")) +
           LegendItem(notCounted, Text("legend not counted")) + LegendItem(g, Text("legend G")) +
           LegendItem(r, Text("legend R")) + LegendItem(box, Text("legend box")) +
           LegendItem(ellipse, Text("legend ellipse")) + LegendItem(worst, Text("legend worst")) +
           "</p>\n";
}

}  // namespace

void AppendPlans(std::string& html, const Sheet& sheet) {
    const PlanScale plan = ScaleFor(sheet);
    if (plan.building.isEmpty) return;
    const std::vector<Beam> beams = BeamsOf(sheet.findings, plan);
    html += PlanLegend();
    for (std::size_t i = sheet.StoryCount(); i-- > 0;) {
        // Two beside each other stay together.
        const bool isFirst = (sheet.StoryCount() - 1 - i) % 2 == 0;
        if (isFirst) html += "<div class=\"figures plans\">";
        const StoryFindings& story = sheet.findings.stories[i];
        html += "<figure>";
        Plan(sheet, plan, beams, story).AppendHtml(html);
        html += Concat({"<figcaption>", CaptionOf(sheet, story), "</figcaption></figure>"});
        if (!isFirst || i == 0) html += "</div>\n";
    }
}
