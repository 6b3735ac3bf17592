#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/vec3.h"
#include "tables/model_statement.h"

/// What the checks of the tables' statements have found.
struct StatementFindings {
    /// Statements that cannot be right, one line each, with the figures and the members that say
    /// so and, where one fits, the statement that would be right.
    std::vector<std::string> wrong;

    /// Statements that may be right and are unusual.
    std::vector<std::string> unusual;

    /// What was checked and found right, and what could not be checked, in words.
    std::vector<std::string> passed;
    std::vector<std::string> notChecked;
};

/// Begins a line about a key of model.csv: place, key and value.
std::string About(const ModelStatement& statement, std::string_view key);

/// A figure for a message: four digits, or all of those before the decimal point.
std::string FigureText(double value);

/// "(x, y, z)" in figures.
std::string VectorText(const Vec3& vector);

/// Names of members or nodes, the first few and how many more.
std::string ListText(const std::vector<std::string>& names);
