#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "host/recorded_model.h"

/// A host model file (.qhm) that cannot be read or written. The text is one line that names the
/// file, the place in it and what was expected.
class QhmFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A host model file as it was read.
struct QhmContents {
    RecordedModel model;

    /// What somebody should know who relies on it, one line each, without the file's name: a key
    /// of the outermost object that is unknown, and so not read, may be a misspelt section.
    std::vector<std::string> cautions;
};

/// Reads a host model file whole, as a stream. Throws QhmFileError at the first fault, and
/// std::bad_alloc where there is not enough memory.
///
/// What the file leaves out has its default: metric units, Y vertical, results available, empty
/// lists, no support, no rotation. A number that stands twice among nodes or members is answered
/// from its first entry. `modelPath` has no value when the file does not give one, and is empty
/// when the file says that the host returns none.
QhmContents ReadQhmFileWithCautions(const std::string& path);

/// The same, for whom nobody reads cautions.
RecordedModel ReadQhmFile(const std::string& path);

/// Writes what a run has asked as a host model file, whole or not at all: first beside it under
/// another name, then renamed. Throws QhmFileError when the file cannot be written, when a listed
/// node or member was not asked about, or when the host answered a value that is not finite.
///
/// End forces of which only one end was asked about get zeros for the other one; in a model that
/// says what it was recorded for they are an error (see host/recording.h).
void WriteQhmFile(const RecordedModel& model, const std::string& path);
