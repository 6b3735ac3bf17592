#include "tables/statement_findings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "log/formatted_print.h"
#include "platform/one_line.h"

namespace {

std::string ValueOf(const ModelStatement& statement, std::string_view key) {
    if (key == "verticalAxis") return statement.zUp ? "Z" : "Y";
    if (key == "lengthUnit") return statement.lengthUnit->name;
    if (key == "displacementUnit") return statement.displacementUnit->name;
    if (key == "forceUnit") return statement.forceUnit->name;
    if (key == "endForceAxes") return NameOf(statement.endForceAxes);
    return NameOf(statement.endForceSense);
}

}  // namespace

std::string About(const ModelStatement& statement, std::string_view key) {
    return TextOf(TableName::kModel, statement.PlaceOf(key)) + ": " + std::string(key) + " " +
           ValueOf(statement, key) + ": ";
}

std::string FigureText(double value) {
    constexpr double kFourDigits = 1000.0, kManyDigits = 1e9;
    const bool isLong = std::abs(value) >= kFourDigits && std::abs(value) < kManyDigits;
    char text[40];
    std::snprintf(text, sizeof text, isLong ? "%.0f" : "%.4g", Printable(value + 0.0));  // no -0
    return text;
}

std::string VectorText(const Vec3& vector) {
    std::string text(1, '(');
    text.append(FigureText(vector.x)).append(", ").append(FigureText(vector.y));
    return text.append(", ").append(FigureText(vector.z)).append(1, ')');
}

std::string ListText(const std::vector<std::string>& names) {
    constexpr std::size_t kMost = 5, kLongestName = 60;
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i)
        text += (i == 0 ? "" : ", ") + OneLine(names[i], kLongestName);
    if (names.size() > kMost) text += " and " + std::to_string(names.size() - kMost) + " more";
    return text;
}
