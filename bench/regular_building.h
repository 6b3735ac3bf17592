#pragma once

#include <cstdint>
#include <string>

#include "host/recorded_model.h"

/// How large a generated building is. Members are columns and floor beams together.
struct BuildingSize {
    std::int32_t members;
    std::int32_t stories;
    std::int32_t loadCases;
};

/// A generated building, always alike: for benchmarks and for tests that count questions.
///
/// Y is vertical, units are metric. Every story is 4 m high and has the same columns on a grid;
/// one member in four is a column where the grid has room for enough beams. Beams and horizontal
/// braces join neighbouring columns at every floor but the lowest. Every third column runs from
/// top to bottom. Numbers of nodes and members have gaps. It has the displacements of all nodes
/// under all load cases, and the end forces of the columns under the first three, which are all
/// that a run asks for.
struct RegularBuilding {
    RecordedModel model;

    /// A Route 2 Input file for it: load cases and the first column of every story, as far as a
    /// line has room, to be reported. Floors and stories come from the model.
    std::string inputText;

    std::int32_t columnsPerStory = 0;
};

/// `size` has at least one story, two members a story and three load cases: 1 is dead load, 2 an
/// earthquake along X, 3 one along Z.
RegularBuilding MakeRegularBuilding(const BuildingSize& size);
