#pragma once

#include <cstddef>
#include <string_view>

/// Cells that a UTF-8 text takes on a terminal: two for the wide characters of East Asian scripts,
/// none for marks that combine with the character before.
std::size_t DisplayWidth(std::string_view utf8);

/// The start of a UTF-8 text that takes at most `cells`.
std::string_view CutToWidth(std::string_view utf8, std::size_t cells);
