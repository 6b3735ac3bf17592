#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "input/input_text.h"

/// A line of the building's grid: its name and where it lies, mm.
struct GridLine {
    std::string name;
    double at = 0.0;
};

/// The lines of an input file that only the calculation sheet reads. No check knows them. All texts
/// are UTF-8, as the file has them: nothing is escaped.
struct SheetLines {
    std::string project;
    std::string designer;
    std::map<std::int32_t, std::string> storyNames;  ///< by story number, from 1
    std::map<std::int32_t, std::string> floorNames;  ///< by floor number, from 1, the lowest
    std::map<std::int32_t, std::string> caseNames;   ///< by load case number
    std::vector<GridLine> gridX;                     ///< lines at an x coordinate
    std::vector<GridLine> gridSecond;                ///< lines at a second plan coordinate
    std::vector<std::string> notes;
    std::optional<double> groundLevel;  ///< mm
};

/// Those before the line that begins with FIN. Of a keyword that stands twice the last one counts,
/// but lists and notes add up.
SheetLines SheetLinesOf(const InputText& text);

/// Of a file; empty when it cannot be read.
SheetLines ReadSheetLines(const std::string& path);
