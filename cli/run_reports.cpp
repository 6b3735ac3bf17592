#include "cli/run_reports.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "input/number_text.h"
#include "platform/native_path.h"

namespace {

constexpr std::string_view kDirectionX = "X";
constexpr std::string_view kDirectionZ = "Z(or Y)";

// No lines of anything but a file: a device in a report's place may have no end.
std::vector<std::string> ReadLines(const std::string& path) {
    std::vector<std::string> lines;
    std::error_code unreadable;
    if (!std::filesystem::is_regular_file(NativePath(path), unreadable)) return lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::optional<std::string> TextAfter(const std::string& line, std::string_view start) {
    if (!line.starts_with(start)) return std::nullopt;
    return line.substr(start.size());
}

std::vector<std::string> SplitAtCommas(const std::string& line) {
    std::vector<std::string> fields(1);
    for (const char character : line) {
        if (character == ',')
            fields.emplace_back();
        else
            fields.back().push_back(character);
    }
    return fields;
}

// The rows of one section and block of the results file.
class ResultsReader {
public:
    explicit ResultsReader(ResultsReport& report) : report_(report) {}

    void Read(const std::string& line) {
        if (const auto title = TextAfter(line, " -----  "))
            section_ = *title;
        else if (const auto direction = TextAfter(line, "Direction "))
            direction_ = *direction;
        else if (const auto type = TextAfter(line, "Disp type : "))
            isAverage_ = *type == "Average";
        else if (!line.empty() && line.front() >= '1' && line.front() <= '9')
            ReadRow(SplitAtCommas(line));
    }

private:
    void ReadRow(const std::vector<std::string>& row) {
        const auto count = [&row](std::string_view verdict) {
            return static_cast<int>(std::count(row.begin(), row.end(), verdict));
        };
        report_.passRows += count("PASS");
        report_.failRows += count("FAIL");

        const int story = ToInteger(row[0]);
        report_.stories = std::max(report_.stories, story);
        if (section_.starts_with("Story deformation angle  ") && isAverage_)
            ReadCheckRow(row, story, report_.angles);
        else if (section_.starts_with("Story stiffness ratio") && isAverage_)
            ReadCheckRow(row, story, report_.ratios);
        else if (section_.starts_with("Eccentricity modulus") && row.size() == 9)
            ReadModulusRow(row, story);
    }

    void ReadCheckRow(const std::vector<std::string>& row, int story, CheckVerdicts& check) {
        if (row.size() == 9)
            check[direction_][story][row[1]] = {ToReal(row[6]), ToReal(row[7]), row[8]};
    }

    void ReadModulusRow(const std::vector<std::string>& row, int story) {
        const double allowable = ToReal(row[6]);
        report_.moduli[std::string(kDirectionX)][story][""] = {ToReal(row[4]), allowable, row[7]};
        report_.moduli[std::string(kDirectionZ)][story][""] = {ToReal(row[5]), allowable, row[8]};
    }

    ResultsReport& report_;
    std::string section_;
    std::string direction_;
    bool isAverage_ = false;
};

}  // namespace

LogReport ReadLog(const std::string& path) {
    LogReport report;
    for (const std::string& line : ReadLines(path)) {
        if (const auto warning = TextAfter(line, "*** WARNING *** : "))
            report.warnings.push_back(*warning);
        if (const auto x = TextAfter(line, "  Earthquake load( X direc. ) case number : "))
            report.earthquakeCaseX = ToInteger(*x);
        if (const auto z = TextAfter(line, "  Earthquake load( Z or Y direc. ) case number : "))
            report.earthquakeCaseZ = ToInteger(*z);
    }
    return report;
}

ResultsReport ReadResults(const std::string& path) {
    ResultsReport report;
    ResultsReader reader(report);
    for (const std::string& line : ReadLines(path))
        reader.Read(line);
    return report;
}
