#include "lint/text_report.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "input/line_text.h"
#include "input/lint_finding_text.h"
#include "lint/display_width.h"

namespace {

constexpr std::string_view kIndent = "    ";
constexpr std::size_t kLongestShown = 120;  // cells of a line of the file
constexpr std::size_t kLabelWidth = 30;
constexpr std::size_t kValueWidth = 36;
constexpr std::size_t kMostStories = 12;

std::string_view Say(Language language, std::string_view en, std::string_view ja) {
    return language == Language::kJapanese ? ja : en;
}

std::string PaddedTo(std::size_t width, const std::string& text) {
    const std::size_t shown = DisplayWidth(text);
    return text + std::string(shown < width ? width - shown : 1, ' ');
}

// --- One finding

// A line of the file in three parts: the one that is meant, and what stands beside it.
struct MarkedParts {
    std::string before;
    std::string marked;
    std::string after;
};

MarkedParts PartsOf(const LintFinding& finding, const InputText& text) {
    const InputPlace& place = finding.place;
    const std::string_view line = text.Line(place.line);
    const std::size_t hidden = text.HiddenBytes(place.line);
    const std::size_t offset = std::min(place.offset - std::min(place.offset, hidden), line.size());
    const std::size_t length = std::min(place.length, line.size() - offset);
    const auto show = [&text](std::string_view part) { return Shown(text.Display(part)); };
    return {show(line.substr(0, offset)), show(line.substr(offset, length)),
            show(line.substr(offset + length))};
}

// The line and a mark below the place that is meant; of a long line the part around it.
std::string MarkedLine(const LintFinding& finding, const InputText& text) {
    if (finding.place.line == 0 || finding.place.length == 0) return {};
    MarkedParts parts = PartsOf(finding, text);
    if (DisplayWidth(parts.before) > kLongestShown / 2) parts.before = "... ";
    const std::size_t start = DisplayWidth(parts.before);
    const std::string_view marked = CutToWidth(parts.marked, kLongestShown - start);
    const std::size_t marks = std::max<std::size_t>(1, DisplayWidth(marked));
    const std::string line = parts.before + parts.marked + parts.after;
    return std::string(kIndent) + std::string(CutToWidth(line, kLongestShown)) + '\n' +
           std::string(kIndent) + std::string(start, ' ') + '^' + std::string(marks - 1, '~') +
           '\n';
}

std::string AdviceLines(const LintFinding& finding, Language language) {
    const std::string advice = WriteInstead(finding, language);
    if (advice.empty()) return {};
    const bool isLiteral = !finding.write.empty();
    const std::string label(isLiteral ? Say(language, "  write: ", "  修正例: ")
                                      : Say(language, "  do: ", "  対処: "));
    std::string lines;
    for (std::string_view rest = advice;;) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        lines += (lines.empty() ? label : std::string(DisplayWidth(label), ' ')) +
                 Shown(std::string(line)) + '\n';
        if (line.size() == rest.size()) return lines;
        rest.remove_prefix(line.size() + 1);
    }
}

// --- As read

class AsReadTable {
public:
    AsReadTable(const AsRead& asRead, Language language) : asRead_(asRead), language_(language) {}

    std::string Text() {
        text_ = std::string(Say("As read", "読み取り結果")) + '\n';
        AddLoadCases();
        AddFloorLevels();
        AddStoryMembers();
        AddAllowables();
        AddReportedMembers();
        return text_;
    }

private:
    std::string_view Say(std::string_view en, std::string_view ja) const {
        return ::Say(language_, en, ja);
    }

    std::string LineNumber(std::size_t line) const {
        if (line == 0) return std::string(Say("default", "既定値"));
        return language_ == Language::kJapanese ? std::to_string(line) + " 行目"
                                                : "line " + std::to_string(line);
    }

    std::string FromModel() const { return std::string(Say("from the model", "モデルから")); }

    void Add(std::string_view label, const std::string& value, const std::string& from) {
        std::string line = PaddedTo(kLabelWidth, "  " + std::string(label));
        line += from.empty() ? value : PaddedTo(kValueWidth, value) + from;
        text_ += line + '\n';
    }

    void AddLoadCases() {
        Add(Say("dead load case", "長期荷重ケース"), std::to_string(asRead_.dead.number),
            LineNumber(asRead_.dead.line));
        const auto& [x, second] = asRead_.earthquake;
        std::string from = LineNumber(x.line);
        if (second.line != x.line) from += ", " + LineNumber(second.line);
        const std::string axis = asRead_.secondAxis ? std::string(1, *asRead_.secondAxis)
                                                    : std::string(Say("Z(or Y)", "Z(Y)"));
        Add(std::string(Say("earthquake case", "地震荷重ケース")) + " X, " + axis,
            std::to_string(x.number) + ", " + std::to_string(second.number), from);
    }

    void AddFloorLevels() {
        const std::string_view label = Say("floor levels (mm)", "床レベル (mm)");
        if (!asRead_.floorLevels) return Add(label, FromModel(), "");
        std::string values;
        for (const double level : *asRead_.floorLevels)
            values += (values.empty() ? "" : ", ") + NumberText(level);
        Add(label, values,
            IsFromInput(asRead_.floorLevelsFrom) ? LineNumber(asRead_.floorLevelsLine)
                                                 : FromModel());
    }

    static bool IsFromInput(Source source) { return source == Source::kInput; }

    void AddStoryMembers() {
        const std::string_view label = Say("story members", "対象部材");
        if (!asRead_.storyMembers) return Add(label, FromModel(), "");
        std::string counts;
        for (const auto& [story, members] : *asRead_.storyMembers)
            counts += (counts.empty() ? "" : ", ") + std::to_string(members.size());
        if (counts.empty()) counts = Say("none", "なし");
        if (IsFromInput(asRead_.storyMembersFrom))
            return Add(label, counts, LineNumber(asRead_.storyMembersLine));
        Add(label, std::string(Say("found in the model: ", "モデルから: ")) + counts + Search(),
            "");
    }

    // What the search in the model left out.
    std::string Search() const {
        if (!asRead_.search) return {};
        const MemberSearch& search = *asRead_.search;
        const std::string found = std::to_string(search.found);
        const std::string all = std::to_string(search.columnsAndBraces);
        std::string text = language_ == Language::kJapanese
                               ? "(柱・斜材 " + all + " 本中 " + found + " 本"
                               : " (" + found + " of " + all + " columns and braces";
        if (!search.cutInNoStory.empty()) {
            const std::string count = std::to_string(search.cutInNoStory.size());
            text += language_ == Language::kJapanese
                        ? "、どの階にも属さない切断部材 " + count + " 本: "
                        : "; " + count + " cut members in no story: ";
            text += NumberList(search.cutInNoStory);
        }
        return text + ')';
    }

    // Each story's value; of a tall building the first ones.
    template <typename Form>
    std::string Values(const std::vector<double>& values, const Form& form) const {
        if (values.empty()) return std::string(Say("no stories", "階なし"));
        std::string text;
        for (std::size_t i = 0; i < std::min(values.size(), kMostStories); ++i)
            text += (i == 0 ? "" : ", ") + form(values[i]);
        if (values.size() > kMostStories)
            text += ", ... (+" + std::to_string(values.size() - kMostStories) + ")";
        return text;
    }

    static bool IsSameInEveryStory(const std::optional<std::vector<double>>& values) {
        return values && !values->empty() &&
               std::ranges::all_of(*values, [&](double v) { return v == values->front(); });
    }

    // 0.005 as 1/200.
    static std::string AngleText(double angle) {
        constexpr double kExact = 1e-9;
        const double reciprocal = 1.0 / angle;
        const double whole = std::round(reciprocal);
        if (std::isfinite(reciprocal) && std::abs(reciprocal - whole) < kExact * whole)
            return "1/" + NumberText(whole);
        return NumberText(angle);
    }

    std::string Lines(const std::vector<std::size_t>& lines) const {
        if (lines.empty()) return LineNumber(0);
        std::vector<std::int32_t> numbers;
        numbers.reserve(lines.size());
        for (const std::size_t line : lines)
            numbers.push_back(static_cast<std::int32_t>(line));
        const std::string list = NumberList(numbers);
        if (language_ == Language::kJapanese) return list + " 行目";
        return (lines.size() == 1 ? "line " : "lines ") + list;
    }

    void AddAllowables() {
        const auto add = [this](std::string_view label,
                                const std::optional<std::vector<double>>& values,
                                const std::vector<std::size_t>& lines, const auto& form) {
            if (values)
                Add(label, Values(*values, form), Lines(lines));
            else
                Add(label, std::string(Say("by the stories of the model", "モデルの階による")),
                    Lines(lines));
        };
        add(Say("allowable angle", "許容変形角"), asRead_.allowAngle, asRead_.allowLines[0],
            AngleText);
        if (IsSameInEveryStory(asRead_.allowRatio) && IsSameInEveryStory(asRead_.allowModulus))
            return AddRatioAndModulus();
        add(Say("allowable ratio", "許容剛性率"), asRead_.allowRatio, asRead_.allowLines[1],
            NumberText);
        add(Say("allowable modulus", "許容偏心率"), asRead_.allowModulus, asRead_.allowLines[2],
            NumberText);
    }

    void AddRatioAndModulus() {
        std::vector<std::size_t> lines = asRead_.allowLines[1];
        lines.insert(lines.end(), asRead_.allowLines[2].begin(), asRead_.allowLines[2].end());
        std::ranges::sort(lines);
        Add(Say("allowable ratio, modulus", "許容剛性率, 許容偏心率"),
            NumberText(asRead_.allowRatio->front()) + ", " +
                NumberText(asRead_.allowModulus->front()),
            Lines(lines));
    }

    void AddReportedMembers() {
        const std::string_view label = Say("members to report", "部材別変形角の出力");
        if (asRead_.reportedMembers.empty())
            return Add(label, std::string(Say("none", "なし")), "");
        Add(label, NumberList(asRead_.reportedMembers), LineNumber(asRead_.reportedMembersLine));
    }

    const AsRead& asRead_;
    Language language_;
    std::string text_;
};

std::string Summary(const LintReport& report, Language language) {
    const auto count = [&report](LintKind kind) { return CountOf(report, kind); };
    const auto counted = [language](std::size_t number, const char* en, const char* ja) {
        if (language == Language::kJapanese) return ja + (" " + std::to_string(number));
        return std::to_string(number) + " " + en + (number == 1 ? "" : "s");
    };
    std::string text = counted(count(LintKind::kError), "error", "エラー") + ", " +
                       counted(count(LintKind::kWarning), "warning", "警告") + ", " +
                       counted(count(LintKind::kNote), "note", "注記");
    const std::string more = std::to_string(report.check.findingsLeftOut);
    if (report.check.findingsLeftOut > 0)
        text += language == Language::kJapanese ? " (ほかに省略 " + more + ")"
                                                : " (and " + more + " more that are not shown)";
    return text + '\n';
}

}  // namespace

std::string TextReport(const LintReport& report, Language language) {
    std::string text;
    for (const LintFinding& finding : report.findings) {
        text += LineOf(finding, report.check.text, report.inputPath, language) + '\n';
        text += MarkedLine(finding, report.check.text);
        text += AdviceLines(finding, language);
    }
    if (!text.empty()) text += '\n';
    if (report.asRead)
        text += AsReadTable(*report.asRead, language).Text();
    else
        text +=
            std::string(Say(language, "As read: nothing; a run ends before it has read the file",
                            "読み取り結果: なし(計算は開始しない)")) +
            '\n';
    return text + Summary(report, language);
}
