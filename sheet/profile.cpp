#include "sheet/profile.h"

#include <algorithm>
#include <cmath>

#include "report/number_text.h"
#include "sheet/drawing_parts.h"
#include "sheet/html.h"
#include "sheet/length_text.h"
#include "sheet/texts.h"

namespace {

constexpr double kProfileWidth = 88.0;
constexpr double kProfileLeft = 14.0;  // names of stories
constexpr double kRight = 5.0;
constexpr double kProfileTop = 6.5;     // the limit's value
constexpr double kProfileBelow = 10.5;  // ticks and the axis' name
constexpr double kProfileMark = 0.95;   // half the size of a mark
constexpr double kTickGap = 1.2;        // between the texts of ticks
constexpr double kSideWidth = 86.0;

double BandHeight(std::size_t stories) {
    if (stories <= 8) return 9.0;
    return stories < 20 ? 6.0 : 3.5;
}

struct Tick {
    double at = 0.0;
    std::string text;
};

// A value of a story in one direction.
struct Mark {
    Figure value;
    bool isNg = false;
};

// What a profile shows. All lists have an entry for each story, lowest first.
struct ProfileData {
    Words title;
    Words description;
    Words axisName;
    Words how;  ///< how to read it
    double limit = 0.0;
    std::string limitText;
    bool isUpperLimit = true;
    std::array<std::vector<Mark>, 2> marks = {};
    std::array<std::vector<Figure>, 2> means = {};  ///< empty: none are shown
    std::vector<double> judgedBy = {};              ///< the limit of each story
    std::vector<double> allowables = {};  ///< of the input, where they differ from the limit
    std::vector<Tick> (*ticksUpTo)(double end) = nullptr;
};

double AxisEnd(const ProfileData& data) {
    double largest = 0.0;
    for (const auto* marks : {&data.marks[kX], &data.marks[kZ]})
        for (const Mark& mark : *marks)
            largest = std::max(largest, mark.value.value_or(0.0));
    for (const auto* means : {&data.means[kX], &data.means[kZ]})
        for (const Figure& mean : *means)
            largest = std::max(largest, mean.value_or(0.0));
    for (const double allowable : data.allowables)
        largest = std::max(largest, allowable);
    return std::max(1.25 * data.limit, 1.05 * largest);
}

class Profile {
public:
    Profile(const Sheet& sheet, const ProfileData& data)
        : sheet_(sheet),
          data_(data),
          band_(BandHeight(sheet.StoryCount())),
          end_(AxisEnd(data)),
          bottom_(kProfileTop + band_ * static_cast<double>(sheet.StoryCount())),
          svg_(kProfileWidth, bottom_ + kProfileBelow, data.title, data.description) {}

    Svg Draw() {
        DrawForbiddenSide();
        DrawBands();
        DrawTicks();
        DrawLimit();
        DrawAllowables();
        for (const std::size_t axis : {kX, kZ})
            DrawLine(axis);
        for (const std::size_t axis : {kX, kZ})
            DrawMeans(axis);
        for (const std::size_t axis : {kX, kZ})
            DrawMarks(axis);
        return svg_;
    }

private:
    double X(double value) const {
        return kProfileLeft +
               std::clamp(value / end_, 0.0, 1.0) * (kProfileWidth - kProfileLeft - kRight);
    }
    double Right() const { return kProfileWidth - kRight; }
    double BandTop(std::size_t story) const {
        return bottom_ - band_ * static_cast<double>(story + 1);
    }
    // The second direction stands a little below the first, so that equal values show both.
    double Middle(std::size_t story, std::size_t axis) const {
        const double apart = band_ >= 6.0 ? 0.9 : 0.0;
        return BandTop(story) + band_ / 2.0 + (axis == kX ? -apart : apart);
    }

    void DrawForbiddenSide() {
        for (std::size_t i = 0; i < sheet_.StoryCount(); ++i) {
            const double limit = X(data_.judgedBy[i]), top = BandTop(i);
            const Rectangle side = data_.isUpperLimit
                                       ? Rectangle{limit, top, Right(), top + band_}
                                       : Rectangle{kProfileLeft, top, limit, top + band_};
            svg_.Box(side, {kBlack, 0.0}, kForbidden);
        }
    }

    void DrawBands() {
        std::vector<std::pair<Point, Point>> lines;
        const std::size_t count = sheet_.StoryCount();
        const bool namesAll = band_ >= 3.0;
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0)
                lines.push_back(
                    {{kProfileLeft, BandTop(i) + band_}, {Right(), BandTop(i) + band_}});
            if (!namesAll) continue;
            constexpr double kSize = 2.4;
            const std::string name = sheet_.names.StoryInTable(static_cast<int>(i + 1));
            svg_.Text({kProfileLeft - 1.5, BandTop(i) + band_ / 2.0 + 0.85},
                      {.size = kSize, .anchor = Anchor::kEnd},
                      HtmlText(FittingText(name, kSize, kProfileLeft - 1.5)));
        }
        svg_.Lines(lines, {"#bbb", 0.15});
        svg_.Box({kProfileLeft, kProfileTop, Right(), bottom_}, {kBlack, 0.3}, "none");
    }

    // The limit's own tick first; of the others those that have room.
    void DrawTicks() {
        std::vector<std::pair<double, double>> taken;
        std::vector<Tick> ticks = data_.ticksUpTo(end_);
        std::ranges::stable_sort(ticks, {}, [this](const Tick& tick) {
            return IsLimit(tick) ? 0 : tick.at == 0.0 ? 1 : 2;
        });
        // Then from the far end, where angles stand apart.
        const auto rest = std::ranges::find_if(
            ticks, [this](const Tick& tick) { return !IsLimit(tick) && tick.at != 0.0; });
        std::reverse(rest, ticks.end());
        for (const Tick& tick : ticks) {
            const double x = X(tick.at), half = TextWidth(tick.text, 2.3) / 2.0;
            svg_.Line({x, bottom_}, {x, bottom_ + 1.0}, {kBlack, 0.2});
            const bool hasRoom = std::ranges::none_of(taken, [&](const auto& other) {
                return x - half < other.second + kTickGap && x + half > other.first - kTickGap;
            });
            if (!hasRoom) continue;
            taken.emplace_back(x - half, x + half);
            svg_.Text({x, bottom_ + 3.6}, {.size = 2.3, .anchor = Anchor::kMiddle},
                      HtmlText(tick.text));
        }
        svg_.Text({(kProfileLeft + Right()) / 2.0, bottom_ + 8.0},
                  {.size = 2.5, .anchor = Anchor::kMiddle}, DrawnInBoth(data_.axisName));
    }

    bool IsLimit(const Tick& tick) const { return std::abs(tick.at - data_.limit) < 1e-9; }

    void DrawLimit() {
        const double x = X(data_.limit);
        svg_.Line({x, kProfileTop - 1.5}, {x, bottom_}, {kRed, 0.6});
        svg_.Text({x, kProfileTop - 2.3},
                  {.size = 2.6, .anchor = Anchor::kMiddle, .color = kRed, .isBold = true},
                  HtmlText(data_.limitText));
    }

    void DrawAllowables() {
        if (data_.allowables.empty()) return;
        std::vector<Point> steps;
        for (std::size_t i = 0; i < data_.allowables.size(); ++i) {
            const double x = X(data_.allowables[i]);
            steps.push_back({x, BandTop(i) + band_});
            steps.push_back({x, BandTop(i)});
        }
        svg_.Polyline(steps, {kBlue, 0.45, "1.6 0.9"});
    }

    bool HasMark(std::size_t story, std::size_t axis) const {
        return data_.marks[axis][story].value.has_value();
    }

    // From story to story; where a value is missing the line is broken.
    void DrawLine(std::size_t axis) {
        std::vector<std::pair<Point, Point>> lines;
        for (std::size_t i = 0; i + 1 < sheet_.StoryCount(); ++i)
            if (HasMark(i, axis) && HasMark(i + 1, axis))
                lines.push_back({Place(i, axis), Place(i + 1, axis)});
        svg_.Lines(lines, {kBlack, 0.3, axis == kX ? "" : "1.4 0.9"});
    }

    Point Place(std::size_t story, std::size_t axis) const {
        return {X(*data_.marks[axis][story].value), Middle(story, axis)};
    }

    void DrawMeans(std::size_t axis) {
        for (std::size_t i = 0; i < data_.means[axis].size(); ++i) {
            const Figure& mean = data_.means[axis][i];
            if (!mean) continue;
            const Point at{X(*mean), Middle(i, axis)};
            constexpr double kArm = 0.8;
            svg_.Lines({{{at.x - kArm, at.y - kArm}, {at.x + kArm, at.y + kArm}},
                        {{at.x - kArm, at.y + kArm}, {at.x + kArm, at.y - kArm}}},
                       {"#555", 0.25});
        }
    }

    void DrawMarks(std::size_t axis) {
        for (std::size_t i = 0; i < sheet_.StoryCount(); ++i) {
            if (!HasMark(i, axis)) {
                svg_.Text({kProfileLeft + (axis == kX ? 1.0 : 4.5), Middle(i, kX) + 0.9},
                          {.size = 2.4}, HtmlText(kNoFigure + sheet_.names.Direction(axis)));
                continue;
            }
            const Point at = Place(i, axis);
            const std::string_view fill = data_.marks[axis][i].isNg ? kBlack : "#fff";
            if (axis == kX)
                svg_.Circle(at, kProfileMark, {kBlack, 0.3}, fill);
            else
                svg_.Box({at.x - kProfileMark, at.y - kProfileMark, at.x + kProfileMark,
                          at.y + kProfileMark},
                         {kBlack, 0.3}, fill);
        }
    }

    const Sheet& sheet_;
    const ProfileData& data_;
    double band_;
    double end_;
    double bottom_;
    Svg svg_;
};

// --- Legend --------------------------------------------------------------------------------------

Svg Sample() {
    return Svg(9, 2.8, {"記号", "mark"}, {"", ""});
}

std::string Legend(const Sheet& sheet, const ProfileData& data) {
    Svg x = Sample(), second = Sample(), ng = Sample(), limit = Sample(), stories = Sample(),
        mean = Sample();
    x.Line({0, 1.4}, {9, 1.4}, {kBlack, 0.3});
    x.Circle({4.5, 1.4}, kProfileMark, {kBlack, 0.3}, "#fff");
    second.Line({0, 1.4}, {9, 1.4}, {kBlack, 0.3, "1.4 0.9"});
    second.Box({3.55, 0.45, 5.45, 2.35}, {kBlack, 0.3}, "#fff");
    ng.Circle({2.8, 1.4}, kProfileMark, {kBlack, 0.3}, kBlack);
    ng.Box({5.3, 0.45, 7.2, 2.35}, {kBlack, 0.3}, kBlack);
    limit.Line({4.5, 0}, {4.5, 2.8}, {kRed, 0.6});
    limit.Box(data.isUpperLimit ? Rectangle{4.8, 0, 9, 2.8} : Rectangle{0, 0, 4.2, 2.8},
              {kBlack, 0.0}, kForbidden);
    stories.Line({4.5, 0}, {4.5, 2.8}, {kBlue, 0.45, "1.6 0.9"});
    mean.Lines({{{3.7, 0.6}, {5.3, 2.2}}, {{3.7, 2.2}, {5.3, 0.6}}}, {"#555", 0.25});
    const auto direction = [&](std::size_t axis) {
        return Filled(Text("direction d"), {{"d", sheet.names.Direction(axis)}});
    };
    std::string html = LegendItem(x, direction(kX)) + LegendItem(second, direction(kZ)) +
                       LegendItem(ng, Text("legend ng"));
    if (!data.means[kX].empty()) html += LegendItem(mean, Text("legend mean"));
    html += LegendItem(limit, Filled(Text("legend limit"), {{"limit", data.limitText}}));
    if (!data.allowables.empty()) html += LegendItem(stories, Text("legend story limits"));
    return html;
}

std::string ProfileFigure(const Sheet& sheet, const ProfileData& data) {
    const Svg svg = Profile(sheet, data).Draw();
    return "<div class=\"figures\"><figure>" + svg.Html() + "<figcaption>" + InBoth(data.title) +
           "</figcaption></figure><div class=\"side legends\" style=\"width:" +
           LengthText(kSideWidth) + "mm\">" + Legend(sheet, data) + "<p class=\"small\">" +
           InBoth(data.how) + "</p></div></div>\n";
}

// --- The three checks ----------------------------------------------------------------------------

std::vector<Tick> AngleTicks(double end) {
    std::vector<Tick> ticks{{0.0, "0"}};
    for (const int denominator : {1000, 500, 300, 200, 150, 120, 100, 50, 20, 10, 5, 2})
        if (1.0 / denominator <= end)
            ticks.push_back({1.0 / denominator, "1/" + std::to_string(denominator)});
    return ticks;
}

// Whole multiples of a step that grows with the axis.
std::vector<Tick> EvenTicks(double end, double step, int decimals) {
    std::vector<Tick> ticks;
    while (end / step > 20.0)
        step *= 2.0;
    for (int i = 0; i * step <= end * (1.0 + 1e-9); ++i)
        ticks.push_back({i * step, NumberText(i * step, {Rounding::kNearest, decimals})});
    return ticks;
}

std::vector<Tick> RatioTicks(double end) {
    return EvenTicks(end, end > 2.4 ? 0.5 : 0.2, 1);
}

std::vector<Tick> ModulusTicks(double end) {
    if (end > 1.3) return EvenTicks(end, 0.5, 2);
    return EvenTicks(end, end > 0.6 ? 0.1 : 0.05, 2);
}

std::vector<double> UnlessAllAre(double limit, std::vector<double> values) {
    if (std::ranges::count(values, limit) == std::ssize(values)) values.clear();
    return values;
}

std::vector<double> AllowablesOf(const Sheet& sheet, double limit,
                                 double StoryFindings::*allowable) {
    std::vector<double> values;
    for (const StoryFindings& story : sheet.findings.stories)
        values.push_back(story.*allowable);
    return UnlessAllAre(limit, values);
}

}  // namespace

std::string AngleProfile(const Sheet& sheet) {
    ProfileData data{.title = Text("angle profile"),
                     .description = Text("profile description"),
                     .axisName = Text("angle axis"),
                     .how = Text("how to read angles"),
                     .limit = kCodeDeformAngle,
                     .limitText = AllowableAngleText(kCodeDeformAngle)};
    data.ticksUpTo = AngleTicks;
    for (const StoryFindings& story : sheet.findings.stories) {
        for (const std::size_t axis : {kX, kZ}) {
            const DirectionFindings& direction = story.directions[axis];
            const WorstUprightMember& worst = direction.worstUpright;
            data.marks[axis].push_back({worst.angle, worst.code == CodeVerdict::kNg});
            Figure mean = direction.meanAngle;
            if (mean) mean = std::abs(*mean);
            data.means[axis].push_back(mean);
        }
        const double allowable = story.directions[kX].worstUpright.allowable;
        data.judgedBy.push_back(allowable);
    }
    data.allowables = UnlessAllAre(kCodeDeformAngle, data.judgedBy);
    return ProfileFigure(sheet, data);
}

std::string RatioProfile(const Sheet& sheet) {
    ProfileData data{.title = Text("ratio profile"),
                     .description = Text("profile description"),
                     .axisName = Text("ratio axis"),
                     .how = Text("how to read ratios"),
                     .limit = kCodeStiffnessRatio,
                     .limitText = InputValueText(kCodeStiffnessRatio),
                     .isUpperLimit = false};
    data.ticksUpTo = RatioTicks;
    for (const StoryFindings& story : sheet.findings.stories)
        for (const std::size_t axis : {kX, kZ}) {
            const DirectionFindings& direction = story.directions[axis];
            data.marks[axis].push_back(
                {direction.stiffnessRatio, direction.stiffnessRatioCode == CodeVerdict::kNg});
        }
    data.allowables = AllowablesOf(sheet, kCodeStiffnessRatio, &StoryFindings::allowableRatio);
    data.judgedBy.assign(sheet.StoryCount(), kCodeStiffnessRatio);
    return ProfileFigure(sheet, data);
}

std::string ModulusProfile(const Sheet& sheet) {
    ProfileData data{.title = Text("modulus profile"),
                     .description = Text("profile description"),
                     .axisName = Text("modulus axis"),
                     .how = Text("how to read moduli"),
                     .limit = kCodeEccentricityModulus,
                     .limitText = InputValueText(kCodeEccentricityModulus)};
    data.ticksUpTo = ModulusTicks;
    for (const StoryFindings& story : sheet.findings.stories)
        for (const std::size_t axis : {kX, kZ}) {
            const DirectionFindings& direction = story.directions[axis];
            data.marks[axis].push_back(
                {direction.eccentricityModulus, direction.eccentricityCode == CodeVerdict::kNg});
        }
    data.allowables =
        AllowablesOf(sheet, kCodeEccentricityModulus, &StoryFindings::allowableModulus);
    data.judgedBy.assign(sheet.StoryCount(), kCodeEccentricityModulus);
    return ProfileFigure(sheet, data);
}
