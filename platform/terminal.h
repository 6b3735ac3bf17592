#pragma once

/// True when standard output is a terminal that shows colours; switches them on where a console
/// needs that.
bool StandardOutputShowsColor();

/// True when standard error is a terminal, where a line can be written over.
bool StandardErrorIsTerminal();
