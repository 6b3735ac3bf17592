#pragma once

#include <cstdio>
#include <string>

/// What came of opening a report.
enum class ReportOpening {
    kNotTried,
    kOpen,
    kHeld,      ///< another run, or on Windows any other program, keeps it to itself
    kNotAFile,  ///< a folder, a pipe or a device stands there
    kRefused,   ///< the system does not let it be written
};

/// A report as it was opened; `stream` is null unless `opening` is kOpen.
struct OpenedReport {
    std::FILE* stream = nullptr;
    ReportOpening opening = ReportOpening::kNotTried;
};

/// Opens a report to write it anew, as text, and holds it against other writers until the stream
/// is closed or ReleaseReport lets go of it; readers may look meanwhile. Nothing is emptied before
/// the hold is had, and what is not a regular file is not opened at all. The stream belongs to the
/// caller.
///
/// The hold: on Windows nobody else can open the file for writing; elsewhere the file carries a
/// lock (flock), which every run asks for. A file system without locks is written without one.
OpenedReport OpenReport(const std::string& path);

/// For a stream that stays open although its run has ended: writes out what it still keeps back,
/// and lets others write the file. On Windows, the stream leads to nowhere from then on.
void ReleaseReport(std::FILE* stream);
