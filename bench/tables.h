#pragma once

/// Registers the benchmark of tables of 20,000 members under 60 load cases: their export and their
/// import.
void RegisterTables();

/// Prints, as Markdown, how fast they were and what memory they took, as far as it was measured.
void PrintTables();
