#pragma once

/// Registers the benchmark of the calculation sheet of 30-story buildings: what it adds to a check
/// of a recording.
void RegisterSheets();

/// Prints, as Markdown, what it adds beside what the check reads and computes, as far as it was
/// measured.
void PrintSheets();
