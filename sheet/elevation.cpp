#include "sheet/elevation.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "report/number_text.h"
#include "route2/node_table.h"
#include "route2/tolerances.h"
#include "sheet/drawing_parts.h"
#include "sheet/first_page.h"
#include "sheet/html.h"
#include "sheet/label_places.h"
#include "sheet/texts.h"

namespace {

constexpr double kViewWidth = 86.0;  // of one view, mm on paper
constexpr double kViewLeft = 5.0;
constexpr double kViewTop = 5.5;
constexpr double kViewBelow = 7.5;      // supports, ground, axis
constexpr double kNameGap = 3.4;        // between the drawing and the names beside it
constexpr double kNarrowColumn = 12.0;  // of names
constexpr double kWideColumn = 24.0;    // longer names are cut
constexpr double kTextSize = 2.3;
constexpr double kTextGap = 3.0;
constexpr double kRoomBetween = 6.2;          // a story this high has its name between its levels
constexpr std::size_t kNamesEveryLevel = 16;  // stories from which every second level is named

// --- What is drawn -------------------------------------------------------------------------------

struct Extent {
    double low = 0.0;
    double high = 0.0;
    bool isEmpty = true;

    void Include(double value) {
        if (!std::isfinite(value)) return;
        low = isEmpty ? value : std::min(low, value);
        high = isEmpty ? value : std::max(high, value);
        isEmpty = false;
    }
    double Size() const { return high - low; }
};

// Which members are counted, and in which stories others are cut.
struct MemberRoles {
    std::unordered_set<std::int32_t> counted;
    std::unordered_map<std::int32_t, std::vector<const StoryFindings*>> notCounted;

    explicit MemberRoles(const Findings& findings) {
        for (const StoryFindings& story : findings.stories) {
            for (const MemberFindings& member : story.members)
                counted.insert(member.number);
            for (const MemberFindings& member : story.cutNotCounted)
                notCounted[member.number].push_back(&story);
        }
    }
};

double PlanCoordinate(const Vec3& point, std::size_t axis, bool zIsVertical) {
    return axis == kX ? point.x : PlanZ(point, zIsVertical);
}

// Lines that fall on each other are drawn once.
class LineSet {
public:
    void Add(Point a, Point b) {
        if (b.x < a.x || (b.x == a.x && b.y < a.y)) std::swap(a, b);
        const auto hundredths = [](double length) { return std::lround(100.0 * length); };
        const std::array key{hundredths(a.x), hundredths(a.y), hundredths(b.x), hundredths(b.y)};
        if (key[0] == key[2] && key[1] == key[3]) return;
        if (known_.insert(key).second) lines_.emplace_back(a, b);
    }
    const std::vector<std::pair<Point, Point>>& Lines() const { return lines_; }

private:
    std::set<std::array<long, 4>> known_;
    std::vector<std::pair<Point, Point>> lines_;
};

// --- Names beside it -----------------------------------------------------------------------------

// As much of a name as fits beside the building, with a number behind it.
std::string Fitting(const std::string& name, const std::string& number) {
    const std::string rest = " " + number;
    return FittingText(name, kTextSize, kWideColumn - TextWidth(rest, kTextSize)) + rest;
}

std::string LevelName(const Sheet& sheet, std::size_t level) {
    return Fitting(sheet.names.Floor(level), LevelText(sheet.findings.floorLevels[level]));
}

FilledWords StoryName(const Sheet& sheet, const StoryFindings& story) {
    const FilledWords name = sheet.names.Story(story.number);
    const std::string height = "h " + LevelText(story.height);
    return {Fitting(name.ja, height), Fitting(name.en, height)};
}

// --- One view ------------------------------------------------------------------------------------

struct ViewSize {
    double scale = 1.0;         // mm on paper per mm
    bool storiesAside = false;  // names of stories have no room between those of levels
    double names = 0.0;         // width of the column, or of both, mm
    double storyNames = 0.0;    // where the second one begins
    double height = 0.0;        // of the building on paper, mm
    Extent vertical;
};

class View {
public:
    View(const Sheet& sheet, const MemberRoles& roles, std::size_t axis, const ViewSize& size,
         const Extent& across)
        : sheet_(sheet),
          findings_(sheet.findings),
          roles_(roles),
          axis_(axis),
          size_(size),
          across_(across),
          drawnWidth_(kViewWidth - kViewLeft - size.names),
          svg_(kViewWidth, kViewTop + size.height + kViewBelow, Title(),
               Text("elevation description")) {}

    void AppendHtml(std::string& html) {
        svg_.Text({kViewLeft - 3.0, 3.2}, {.size = 2.6, .isBold = true}, DrawnInBoth(Title()));
        DrawLevelLines();
        DrawMembers();
        DrawSupports();
        DrawLevelNames();
        DrawStoryNames();
        DrawFoot();
        svg_.AppendHtml(html);
    }

private:
    FilledWords Title() const {
        return Filled(Text("elevation title"), {{"d", sheet_.names.Direction(axis_)}});
    }

    double X(double coordinate) const {
        const double margin = (drawnWidth_ - across_.Size() * size_.scale) / 2.0;
        return kViewLeft + margin + (coordinate - across_.low) * size_.scale;
    }
    double Y(double height) const {
        return kViewTop + (size_.vertical.high - height) * size_.scale;
    }
    double Right() const { return kViewLeft + drawnWidth_; }

    Point At(const Vec3& point) const {
        return {X(PlanCoordinate(point, axis_, findings_.zIsVertical)),
                Y(Vertical(point, findings_.zIsVertical))};
    }

    void DrawLevelLines() {
        std::vector<std::pair<Point, Point>> lines;
        for (const double level : findings_.floorLevels)
            lines.push_back({{kViewLeft - 3.0, Y(level)}, {Right() + 1.0, Y(level)}});
        svg_.Lines(lines, {"#555", 0.15, "3 0.8 0.5 0.8"});
    }

    // The part of a member that lies within a story.
    void AddWithin(const StoryFindings& story, const Vec3& a, const Vec3& b, LineSet& lines) const {
        const double lowest = Vertical(a, findings_.zIsVertical);
        const double highest = Vertical(b, findings_.zIsVertical);
        const Point from = At(a), to = At(b);
        const auto at = [&](double level) {
            const double share = std::clamp((level - lowest) / (highest - lowest), 0.0, 1.0);
            return Point{from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
        };
        if (lowest == highest) return;
        lines.Add(at(story.lowerLevel), at(story.upperLevel));
    }

    void DrawMembers() {
        LineSet counted, notCounted, level, other;
        for (const ModelMember& member : findings_.members) {
            if (!member.start || !member.end) continue;
            const Vec3& a = findings_.nodes[*member.start].point;
            const Vec3& b = findings_.nodes[*member.end].point;
            const bool z = findings_.zIsVertical;
            const bool isLevel = std::abs(Vertical(a, z) - Vertical(b, z)) < kSameLevel;
            const auto cut = roles_.notCounted.find(member.number);
            if (cut != roles_.notCounted.end())
                for (const StoryFindings* const story : cut->second)
                    AddWithin(*story, a, b, notCounted);
            if (roles_.counted.contains(member.number))
                counted.Add(At(a), At(b));
            else
                (isLevel ? level : other).Add(At(a), At(b));
        }
        svg_.Lines(other.Lines(), {kLightGrey, 0.2});
        svg_.Lines(level.Lines(), {kGrey, 0.25});
        svg_.Lines(counted.Lines(), {kBlack, 0.55});
        svg_.Lines(notCounted.Lines(), {kRed, 0.8});
    }

    void DrawSupports() {
        std::set<std::pair<long, long>> places;
        double lowest = 0.0;
        Extent ground;
        for (const ModelNode& node : findings_.nodes) {
            const Point at = At(node.point);
            if (!node.supported || !std::isfinite(at.x) || !std::isfinite(at.y)) continue;
            lowest = ground.isEmpty ? at.y : std::max(lowest, at.y);
            ground.Include(at.x);
            if (!places.insert({std::lround(10.0 * at.x), std::lround(10.0 * at.y)}).second)
                continue;
            svg_.Polygon({at, {at.x - 1.0, at.y + 1.7}, {at.x + 1.0, at.y + 1.7}}, {kBlack, 0.2},
                         "#fff");
        }
        if (ground.isEmpty) return;
        std::vector<std::pair<Point, Point>> hatch;
        const double y = lowest + 1.7;
        const double left = ground.low - 2.5, right = ground.high + 2.5;
        const auto strokes = static_cast<int>((right - left - 0.8) / 1.6) + 1;
        for (int i = 0; i < strokes; ++i) {
            const double x = left + 0.8 + 1.6 * i;
            hatch.push_back({{x, y}, {x - 0.8, y + 1.0}});
        }
        svg_.Line({left, y}, {right, y}, {kBlack, 0.2});
        svg_.Lines(hatch, {kBlack, 0.15});
    }

    // Of many stories every second one is named, or fewer where they have no room.
    std::size_t NamingStep() const {
        const std::size_t stories = findings_.stories.size();
        if (stories < kNamesEveryLevel) return 1;
        const double needed = kTextGap * static_cast<double>(stories) / std::max(size_.height, 1.0);
        return std::max<std::size_t>(2, static_cast<std::size_t>(std::ceil(needed)));
    }

    bool IsNamed(std::size_t level) const {
        const std::size_t top = findings_.floorLevels.size() - 1, step = NamingStep();
        return level == top || (level % step == 0 && level + step <= top);
    }

    std::vector<double> Spread(const std::vector<double>& wanted) const {
        return SpreadApart(wanted, kTextGap, kViewTop - 1.5, kViewTop + size_.height + 1.5);
    }

    // Names from the top down, moved apart where levels lie close, with a line to their level.
    void DrawLevelNames() {
        std::vector<std::size_t> named;
        std::vector<double> wanted;
        for (std::size_t i = findings_.floorLevels.size(); i-- > 0;) {
            if (!IsNamed(i)) continue;
            named.push_back(i);
            wanted.push_back(Y(findings_.floorLevels[i]));
        }
        const std::vector<double> places = Spread(wanted);
        for (std::size_t k = 0; k < named.size(); ++k) {
            const double from = Right() + 1.0, to = Right() + kNameGap;
            if (std::abs(places[k] - wanted[k]) > 0.2)
                svg_.Polyline({{from, wanted[k]}, {to - 0.4, places[k]}}, {"#555", 0.15});
            svg_.Text({to, places[k] + 0.8}, {.size = kTextSize},
                      HtmlText(LevelName(sheet_, named[k])));
        }
    }

    void DrawStoryNames() {
        std::vector<const StoryFindings*> named;
        std::vector<double> wanted;
        for (std::size_t i = findings_.stories.size(); i-- > 0;) {
            const StoryFindings& story = findings_.stories[i];
            if (i % NamingStep() != 0) continue;
            named.push_back(&story);
            wanted.push_back((Y(story.lowerLevel) + Y(story.upperLevel)) / 2.0);
        }
        const std::vector<double> places = Spread(wanted);
        const double x = Right() + size_.storyNames;
        for (std::size_t k = 0; k < places.size(); ++k) {
            svg_.Text({x, places[k] + 0.8}, {.size = kTextSize, .color = "#333"},
                      DrawnInOne(StoryName(sheet_, *named[k])));
        }
    }

    void DrawFoot() {
        const double y = svg_.Height() - 1.6;
        DrawAxis(svg_, {kViewLeft - 3.0, y}, {1.0, 0.0}, sheet_.names.Direction(axis_));
        DrawScaleBar(svg_, {kViewLeft + 14.0, y}, size_.scale, 24.0);
    }

    const Sheet& sheet_;
    const Findings& findings_;
    const MemberRoles& roles_;
    std::size_t axis_;
    const ViewSize& size_;
    const Extent& across_;
    double drawnWidth_;
    Svg svg_;
};

// --- Both views ----------------------------------------------------------------------------------

ViewSize SizeFor(const Sheet& sheet, const Extent& vertical, double width, bool storiesAside) {
    const Findings& findings = sheet.findings;
    ViewSize size;
    size.vertical = vertical;
    size.storiesAside = storiesAside;
    double levels = kNarrowColumn, stories = kNarrowColumn;
    for (std::size_t i = 0; i < findings.floorLevels.size(); ++i)
        levels = std::max(levels, TextWidth(LevelName(sheet, i), kTextSize));
    for (const StoryFindings& story : findings.stories) {
        const FilledWords name = StoryName(sheet, story);
        stories = std::max({stories, TextWidth(name.ja, kTextSize), TextWidth(name.en, kTextSize)});
    }
    size.storyNames = kNameGap + (storiesAside ? levels : 1.0);
    size.names = std::max(kNameGap + levels, size.storyNames + stories);
    const double room = kViewWidth - kViewLeft - size.names - 6.0;
    const double limit = GreatestElevation(sheet);
    size.scale = limit / std::max(vertical.Size(), 1.0);
    if (width > 0.0) size.scale = std::min(size.scale, room / width);
    size.height = vertical.Size() * size.scale;
    return size;
}

ViewSize ChooseSize(const Sheet& sheet, const Extent& vertical, double width) {
    const ViewSize size = SizeFor(sheet, vertical, width, false);
    const bool hasRoom = std::ranges::all_of(
        sheet.findings.stories,
        [&](const StoryFindings& story) { return story.height * size.scale >= kRoomBetween; });
    return hasRoom ? size : SizeFor(sheet, vertical, width, true);
}

std::string ElevationLegend() {
    const auto line = [](const Stroke& stroke) {
        Svg sample(7, 2.6, {"線", "line"}, {"", ""});
        sample.Line({0, 1.3}, {7, 1.3}, stroke);
        return sample;
    };
    Svg support(3, 2.6, {"三角", "triangle"}, {"", ""});
    support.Polygon({{1.5, 0.4}, {0.5, 2.1}, {2.5, 2.1}}, {kBlack, 0.2}, "#fff");
    return "<p class=\"legends\">" + LegendItem(line({kBlack, 0.55}), Text("legend counted")) +
           LegendItem(line({kRed, 0.8}), Text("legend not counted")) +
           LegendItem(line({kGrey, 0.25}), Text("legend beams")) +
           LegendItem(support, Text("legend support")) + "</p>\n";
}

}  // namespace

std::string Elevations(const Sheet& sheet) {
    const Findings& findings = sheet.findings;
    Extent vertical, across[2];
    for (const double level : findings.floorLevels)
        vertical.Include(level);
    for (const ModelMember& member : findings.members)
        for (const auto& node : {member.start, member.end}) {
            if (!node) continue;
            const Vec3& point = findings.nodes[*node].point;
            vertical.Include(Vertical(point, findings.zIsVertical));
            for (const std::size_t axis : {kX, kZ})
                across[axis].Include(PlanCoordinate(point, axis, findings.zIsVertical));
        }
    if (vertical.isEmpty || across[kX].isEmpty) return {};
    const double width = std::max(across[kX].Size(), across[kZ].Size());
    const ViewSize size = ChooseSize(sheet, vertical, width);
    const MemberRoles roles(findings);
    std::string html = "<div class=\"figures\">";
    for (const std::size_t axis : {kX, kZ}) {
        html += "<figure>";
        View(sheet, roles, axis, size, across[axis]).AppendHtml(html);
        html += "</figure>";
    }
    return html + "</div>\n" + ElevationLegend();
}
