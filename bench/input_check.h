#pragma once

/// Registers the benchmarks of input files of 100,000 lines: the five readers of the engine over
/// them, and the check of them.
void RegisterInputChecks();

/// Prints, as Markdown, what the check costs in runs of the readers, as far as it was measured.
void PrintInputCheckRatios();
