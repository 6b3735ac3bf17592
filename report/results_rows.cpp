#include "report/results_rows.h"

#include <array>
#include <cstdio>
#include <set>

#include "log/formatted_print.h"
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
                          direction.results.meanAngle, story.allowableAngle,
                          direction.toolMeanVerdict);
        }
        for (const StoryFindings& story : findings_.stories) {
            const DirectionFindings& direction = story.directions[axis];
            AddByLoadCase(ResultsFigure::kMaxAngle, story, axis, direction.results.maxDrift,
                          direction.results.maxAngle, story.allowableAngle,
                          direction.toolMax.verdict);
        }
    }

    void AddRatios(std::size_t axis) {
        for (const StoryFindings& story : findings_.stories) {
            const DirectionFindings& direction = story.directions[axis];
            AddByLoadCase(ResultsFigure::kStiffnessRatio, story, axis, direction.results.meanDrift,
                          direction.results.stiffnessRatio, story.allowableRatio,
                          direction.stiffnessRatioTool);
        }
    }

    void AddCenters(ResultsFigure figure, std::optional<PerDirection> StoryFindings::*center) {
        for (const StoryFindings& story : findings_.stories) {
            const auto& point = story.*center;
            if (!point) continue;
            const std::string text =
                RowText(kCenterRowFormat, story.number, story.lowerLevel, story.upperLevel,
                        story.height, (*point)[kX], (*point)[kZ]);
            for (const std::size_t axis : {kX, kZ})
                rows_.push_back({figure, story.number, axis, (*point)[axis], {}, text});
        }
    }

    void AddModuli() {
        for (const StoryFindings& story : findings_.stories) {
            const DirectionFindings& x = story.directions[kX];
            const DirectionFindings& z = story.directions[kZ];
            if (!x.results.eccentricityModulus || !z.results.eccentricityModulus) continue;
            const std::string text =
                RowText(kModulusRowFormat, story.number, story.lowerLevel, story.upperLevel,
                        story.height, *x.results.eccentricityModulus,
                        *z.results.eccentricityModulus, story.allowableModulus,
                        VerdictText(x.eccentricityTool), VerdictText(z.eccentricityTool));
            for (const std::size_t axis : {kX, kZ}) {
                const DirectionFindings& direction = story.directions[axis];
                rows_.push_back({ResultsFigure::kEccentricityModulus, story.number, axis,
                                 *direction.results.eccentricityModulus, direction.eccentricityTool,
                                 text});
            }
        }
    }

    std::vector<ResultsRow> Rows() const { return rows_; }

private:
    void AddByLoadCase(ResultsFigure figure, const StoryFindings& story, std::size_t axis,
                       const std::optional<double>& drift, const std::optional<double>& value,
                       double allowable, const std::optional<ToolVerdict>& verdict) {
        if (!drift || !value) return;
        rows_.push_back({figure, story.number, axis, *value, verdict,
                         RowText(kLoadCaseRowFormat, story.number,
                                 static_cast<int>(findings_.loadCases.earthquake[axis]),
                                 story.lowerLevel, story.upperLevel, story.height, *drift, *value,
                                 allowable, VerdictText(verdict))});
    }

    const Findings& findings_;
    std::vector<ResultsRow> rows_;
};

std::string_view TextAfter(std::string_view line, std::string_view start) {
    return line.starts_with(start) ? line.substr(start.size()) : std::string_view();
}

// The rows of a results file, each behind its section, direction and kind of displacement.
std::set<std::string> RowsByPlace(std::string_view text) {
    std::set<std::string> rows;
    std::string section, direction, dispType;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (const auto title = TextAfter(line, " -----  "); !title.empty()) {
            section = title.substr(0, title.find("  -----"));
            direction.clear();
            dispType.clear();
        } else if (const auto name = TextAfter(line, "Direction "); !name.empty()) {
            direction = name;
        } else if (const auto type = TextAfter(line, "Disp type : "); !type.empty()) {
            dispType = type;
        } else {
            rows.insert(section + "|" + direction + "|" + dispType + "|" + std::string(line));
        }
    }
    return rows;
}

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
    return list.Rows();
}

ResultsPlace PlaceOf(const ResultsRow& row) {
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

std::vector<bool> HoldsRows(std::string_view resultsText, const std::vector<ResultsRow>& rows) {
    const std::set<std::string> present = RowsByPlace(resultsText);
    std::vector<bool> holds;
    for (const ResultsRow& row : rows) {
        const ResultsPlace place = PlaceOf(row);
        const std::string wanted = std::string(place.section) + "|" + std::string(place.direction) +
                                   "|" + std::string(place.dispType) + "|" + row.text;
        const auto found = present.lower_bound(wanted);
        holds.push_back(found != present.end() && found->starts_with(wanted));
    }
    return holds;
}
