#pragma once

#include <string>

#include "sheet/sheet_parts.h"

// Formulas with the marks of HtmlOfOwnText and the names of the sheet's directions and coordinates.

std::string RatioFormulas();
std::string GravityFormulas(const Sheet& sheet);
std::string RigidityFormulas(const Sheet& sheet);
std::string TorsionFormulas(const Sheet& sheet);
std::string ModulusFormulas(const Sheet& sheet);
