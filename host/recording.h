#pragma once

#include <string>

#include "host/recorded_model.h"
#include "host/remembering_host.h"

// What makes a recording of the memory of a run. It must not answer with zeros what it was not
// asked: a model that is checked with another input file, and seems to stand still in a load case,
// would pass.

/// What a recording of the run with this input file is for: the file's name and digest. Throws
/// std::runtime_error when the file cannot be read.
RecordedFor RecordedForInput(const std::string& inputPath);

/// What a recording of everything is for.
RecordedFor RecordedForEverything();

/// Asks for the other end of every member end force that the run has asked for: a model file holds
/// both ends together, and one of them must not be made up. Throws HostCallError.
void AskForOtherEnds(RememberingHost& host);

/// Asks everything that there is to ask: all nodes, all members, those among them that only the
/// run has asked about, and the results of each under all load cases. Throws HostCallError.
void AskForEverything(RememberingHost& host);
