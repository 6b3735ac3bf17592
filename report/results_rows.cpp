#include "report/results_rows.h"

#include <algorithm>
#include <array>
#include <compare>
#include <cstdio>
#include <map>
#include <utility>

#include "log/formatted_print.h"
#include "platform/regular_file.h"
#include "report/results_formats.h"

namespace {

constexpr const char* kAnyVerdict = "";  // of the rows that repeat an older one

template <typename... Values>
std::string RowText(PrintFormat<std::type_identity_t<Values>...> format, Values... values) {
    std::array<char, 400> buffer{};  // every row is shorter
    std::snprintf(buffer.data(), buffer.size(), format.Text(), Printable(values)...);
    std::string text = buffer.data();
    if (text.ends_with('\n')) text.pop_back();
    return text;
}

const char* VerdictText(const std::optional<ToolVerdict>& verdict) {
    return verdict ? TextOf(*verdict) : kAnyVerdict;
}

class RowList {
public:
    explicit RowList(const Findings& findings) : findings_(findings) {}

    void AddAngles(std::size_t axis) {
        for (const StoryFindings& story : findings_.stories) {
            const DirectionFindings& direction = story.directions[axis];
            AddByLoadCase(ResultsFigure::kMeanAngle, story, axis, direction.results.meanDrift,
                          direction.results.meanAngle, direction.toolMeanVerdict);
        }
        for (const StoryFindings& story : findings_.stories) {
            const DirectionFindings& direction = story.directions[axis];
            AddByLoadCase(ResultsFigure::kMaxAngle, story, axis, direction.results.maxDrift,
                          direction.results.maxAngle, direction.toolMax.verdict);
        }
    }

    void AddRatios(std::size_t axis) {
        for (const StoryFindings& story : findings_.stories) {
            const DirectionFindings& direction = story.directions[axis];
            AddByLoadCase(ResultsFigure::kStiffnessRatio, story, axis, direction.results.meanDrift,
                          direction.results.stiffnessRatio, direction.stiffnessRatioTool);
        }
    }

    void AddCenters(ResultsFigure figure, std::optional<PerDirection> StoryFindings::*center) {
        for (const StoryFindings& story : findings_.stories) {
            const auto& point = story.*center;
            if (!point) continue;
            for (const std::size_t axis : {kX, kZ})
                rows_.push_back({figure, story.number, axis, (*point)[axis], {}});
        }
    }

    void AddModuli() {
        for (const StoryFindings& story : findings_.stories) {
            const auto& [x, z] = story.directions;
            if (!x.results.eccentricityModulus || !z.results.eccentricityModulus) continue;
            for (const std::size_t axis : {kX, kZ}) {
                const DirectionFindings& direction = story.directions[axis];
                rows_.push_back({ResultsFigure::kEccentricityModulus, story.number, axis,
                                 *direction.results.eccentricityModulus,
                                 direction.eccentricityTool});
            }
        }
    }

    std::vector<ResultsRow> TakeRows() { return std::move(rows_); }

private:
    void AddByLoadCase(ResultsFigure figure, const StoryFindings& story, std::size_t axis,
                       const std::optional<double>& drift, const std::optional<double>& value,
                       const std::optional<ToolVerdict>& verdict) {
        if (drift && value) rows_.push_back({figure, story.number, axis, *value, verdict});
    }

    const Findings& findings_;
    std::vector<ResultsRow> rows_;
};

std::string LoadCaseRowText(const ResultsRow& row, const Findings& findings,
                            const StoryFindings& story, const std::optional<double>& drift,
                            double allowable) {
    return RowText(kLoadCaseRowFormat, story.number,
                   static_cast<int>(findings.loadCases.earthquake[row.axis]), story.lowerLevel,
                   story.upperLevel, story.height, drift.value_or(0.0), row.value, allowable,
                   VerdictText(row.verdict));
}

std::string CenterRowText(const StoryFindings& story, const PerDirection& center) {
    return RowText(kCenterRowFormat, story.number, story.lowerLevel, story.upperLevel, story.height,
                   center[kX], center[kZ]);
}

std::string ModulusRowText(const StoryFindings& story) {
    const auto& [x, z] = story.directions;
    return RowText(kModulusRowFormat, story.number, story.lowerLevel, story.upperLevel,
                   story.height, x.results.eccentricityModulus.value_or(0.0),
                   z.results.eccentricityModulus.value_or(0.0), story.allowableModulus,
                   VerdictText(x.eccentricityTool), VerdictText(z.eccentricityTool));
}

// The row as it stands in the file, or what it begins with.
std::string TextOf(const ResultsRow& row, const Findings& findings) {
    const StoryFindings& story = findings.stories.at(static_cast<std::size_t>(row.story - 1));
    const ResultsNumbers& results = story.directions[row.axis].results;
    switch (row.figure) {
        case ResultsFigure::kMeanAngle:
            return LoadCaseRowText(row, findings, story, results.meanDrift, story.allowableAngle);
        case ResultsFigure::kMaxAngle:
            return LoadCaseRowText(row, findings, story, results.maxDrift, story.allowableAngle);
        case ResultsFigure::kStiffnessRatio:
            return LoadCaseRowText(row, findings, story, results.meanDrift, story.allowableRatio);
        case ResultsFigure::kGravityCenter:
            return CenterRowText(story, story.gravityCenterOfResults.value_or(PerDirection{}));
        case ResultsFigure::kRigidityCenter:
            return CenterRowText(story, story.rigidityCenterOfResults.value_or(PerDirection{}));
        case ResultsFigure::kEccentricityModulus:
            return ModulusRowText(story);
    }
    return {};
}

// The section's title, and the block's direction and kind of displacement where it has some, as
// they stand in the file: "Story deformation angle", "X", "Average".
struct Place {
    std::string_view section;
    std::string_view direction;
    std::string_view dispType;

    auto operator<=>(const Place&) const = default;
};

Place PlaceOf(const ResultsRow& row) {
    const std::string_view direction = row.axis == kX ? "X" : "Z(or Y)";
    switch (row.figure) {
        case ResultsFigure::kMeanAngle:
            return {"Story deformation angle", direction, "Average"};
        case ResultsFigure::kMaxAngle:
            return {"Story deformation angle", direction, "Max"};
        case ResultsFigure::kStiffnessRatio:
            return {"Story stiffness ratio", direction, "Average"};
        case ResultsFigure::kGravityCenter:
            return {"Gravity center", {}, {}};
        case ResultsFigure::kRigidityCenter:
            return {"Center of rigidity", {}, {}};
        case ResultsFigure::kEccentricityModulus:
            return {"Eccentricity modulus", {}, {}};
    }
    return {};
}

std::string ReadBytes(const std::string& path) {
    const StdioFile file = OpenRegularFile(path, ReadMode::kBytes);
    std::string bytes;
    if (!file) return bytes;
    std::array<char, 16384> block{};
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), file.get()))
        bytes.append(block.data(), size);
    return bytes;
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string_view TextAfter(std::string_view line, std::string_view start) {
    return line.starts_with(start) ? line.substr(start.size()) : std::string_view();
}

// The lines of a results file by their place. Borrows the text.
class LinesByPlace {
public:
    explicit LinesByPlace(std::string_view text) {
        Place place;
        while (!text.empty()) {
            const std::string_view line = TakeLine(text);
            if (const auto title = TextAfter(line, " -----  "); !title.empty())
                place = {title.substr(0, title.find("  -----")), {}, {}};
            else if (const auto name = TextAfter(line, "Direction "); !name.empty())
                place.direction = name;
            else if (const auto type = TextAfter(line, "Disp type : "); !type.empty())
                place.dispType = type;
            else
                blocks_[place].lines.push_back(line);
        }
    }

    // Rows are mostly asked for in their order: each is looked for behind the last one.
    bool Holds(const ResultsRow& row, const std::string& text) {
        Block& block = blocks_[PlaceOf(row)];
        for (std::size_t i = 0; i < block.lines.size(); ++i) {
            const std::size_t k = (block.next + i) % block.lines.size();
            if (!block.lines[k].starts_with(text)) continue;
            block.next = k;
            return true;
        }
        return false;
    }

private:
    struct Block {
        std::vector<std::string_view> lines;
        std::size_t next = 0;
    };

    std::map<Place, Block> blocks_;
};

}  // namespace

std::vector<ResultsRow> ResultsRowsOf(const Findings& findings) {
    if (!findings.end.resultsWritten) return {};
    RowList list(findings);
    for (const std::size_t axis : {kX, kZ})
        list.AddAngles(axis);
    for (const std::size_t axis : {kX, kZ})
        list.AddRatios(axis);
    list.AddCenters(ResultsFigure::kGravityCenter, &StoryFindings::gravityCenterOfResults);
    list.AddCenters(ResultsFigure::kRigidityCenter, &StoryFindings::rigidityCenterOfResults);
    list.AddModuli();
    return list.TakeRows();
}

std::string NameOf(const ResultsRow& row, const Findings& findings) {
    const Place place = PlaceOf(row);
    std::string name(place.section);
    if (!place.direction.empty()) name.append(", Direction ").append(place.direction);
    if (!place.dispType.empty()) name.append(", ").append(place.dispType);
    name.append(", story ").append(std::to_string(row.story));
    if (!place.dispType.empty())
        name.append(", load ").append(std::to_string(findings.loadCases.earthquake[row.axis]));
    return name;
}

std::vector<NamedRow> RowsMissingIn(const std::string& path, const Findings& findings) {
    const std::string text = ReadBytes(path);
    LinesByPlace lines(text);
    std::vector<NamedRow> missing;
    for (const ResultsRow& row : ResultsRowsOf(findings)) {
        if (lines.Holds(row, TextOf(row, findings))) continue;
        std::string name = NameOf(row, findings);
        // The two coordinates of a centre stand in one row.
        if (missing.empty() || missing.back().name != name)
            missing.push_back({row.story, std::move(name)});
    }
    return missing;
}
