#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "input/sheet_lines.h"
#include "report/run_description.h"
#include "route2/findings.h"

/// The languages in which a sheet is shown when it is opened; the reader may choose another.
enum class SheetLanguage { kBoth, kJapanese, kEnglish };

/// Which members the details per story list.
enum class SheetDetail {
    kAll,
    kWorst,  ///< the ten of each story that matter most
    kNone,   ///< no details at all
};

/// What the sheet is asked to show, and how.
struct SheetOptions {
    SheetLanguage language = SheetLanguage::kBoth;
    SheetDetail detail = SheetDetail::kAll;
    bool showsDriftPlans = false;  ///< how the floors move, beside each plan
};

/// A file as the sheet names it. What is not known, or must not be told, is left out.
struct SheetFile {
    std::string path;
    std::optional<std::uintmax_t> size;   ///< bytes
    std::optional<std::string> modified;  ///< when it was written last
    std::optional<std::string> sha256;    ///< 64 hexadecimal digits
};

/// What a run has taken from a line of the input file, or what is wrong with the line.
struct InputLineNote {
    enum class Kind { kTaken, kNote, kWarning, kError };

    std::size_t line = 0;  ///< as an editor counts, from 1
    Kind kind = Kind::kTaken;
    std::string id;  ///< of the input check; empty for what was taken
    std::string ja;
    std::string en;
};

/// The input file beside what a run made of it. All texts are UTF-8.
struct InputAsRead {
    std::vector<std::string> lines;       ///< as they stand, without line ends
    std::vector<InputLineNote> notes;     ///< by line
    std::vector<InputLineNote> defaults;  ///< what no line gave; their line is 0
};

/// Everything that a sheet shows.
struct SheetContent {
    Findings findings;
    RunDescription run;
    std::string program;        ///< "quarnel-cli"
    std::string platform;       ///< where it ran; empty: not told
    std::string made;           ///< when, as the sheet says it
    std::string hostModelPath;  ///< of the model on the host's machine
    std::string commandLine;    ///< empty: none
    SheetFile model;
    SheetFile input;
    SheetFile results;
    SheetFile log;
    InputAsRead inputAsRead;
    SheetLines sheetLines;
    SheetOptions options;
};

/// The model's paths: on its host's machine, where that is another one, and where it was read.
inline std::vector<std::string> PathsOfModel(const SheetContent& content) {
    std::vector<std::string> paths;
    if (!content.hostModelPath.empty() && content.hostModelPath != content.model.path)
        paths.push_back(content.hostModelPath);
    paths.push_back(content.model.path);
    return paths;
}
