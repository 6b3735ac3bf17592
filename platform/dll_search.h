#pragma once

/// From now on this process looks for DLLs in Windows' system folder alone: one that somebody has
/// put beside the program or into its current folder is never loaded. The first thing that every
/// Windows program does; nothing where there are no DLLs.
void RestrictDllSearch();
