#pragma once

#include <string_view>

#include "host/recorded_model.h"

/// A small building written as lines of text, so that seeds and findings can be read and a
/// fuzzer's changes mean something:
///
///     units 1                      base unit system
///     zup                          Z is vertical
///     noresults                    the host holds no results
///     node 7 0 3.5 0 s             number, x, y, z, "s" for a support
///     member 3 1 7 90              number, start node, end node, rotation
///     load 2                       a primary load case
///     comb 101                     a load combination
///     disp 2 7 0.01 0 0            load case, node, three translations
///     force 2 3 0 1 -5 0           load case, member, end, three forces
///     nodecount -1                 a count that does not fit the list; also membercount,
///                                  loadcount, combcount
///
/// Anything else is passed over. Numbers are read as the C library reads them, so nan, inf and
/// 1e308 are values too. A building is kept small enough for a quick run: at most 40 nodes, 60
/// members and 8 load cases and combinations each; counts lie between -3 and 60.
RecordedModel ReadTextModel(std::string_view text);
