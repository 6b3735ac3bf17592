#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "route2/findings.h"
#include "sheet/sheet_parts.h"

/// Why the code's verdict and the tool's differ.
enum class VerdictNote {
    kEqualToLimit = 1,       ///< D1
    kNegative = 2,           ///< D2
    kMaxXNotJudged = 3,      ///< D3
    kMeanPasses = 4,         ///< D4
    kOtherAllowable = 5,     ///< D5
    kFallbackPasses = 6,     ///< D6
    kNotANumber = 7,         ///< D7
    kNoDrift = 8,            ///< D8
    kLeaningMax = 9,         ///< D9
    kOtherMemberHeight = 10  ///< D10
};

using VerdictNotes = std::vector<VerdictNote>;

// Empty where the two verdicts say the same, and where one of them is not there.

/// The story deformation angle: the code's verdict beside the tool's on the mean.
VerdictNotes AngleNotes(const StoryFindings& story, std::size_t axis);

/// The code's verdict beside the tool's on its largest drift.
VerdictNotes ToolMaxNotes(const StoryFindings& story, std::size_t axis);

VerdictNotes RatioNotes(const StoryFindings& story, std::size_t axis);
VerdictNotes EccentricityNotes(const StoryFindings& story, std::size_t axis);

/// An allowable value of the input file and the code's limit, as text.
struct LimitTexts {
    std::string input;
    std::string code;
};

/// The notes that a table carries, explained below it.
class NoteList {
public:
    explicit NoteList(const Sheet& sheet) : sheet_(sheet) {}

    /// The marks of a cell's notes, HTML. `limits` are told by the note that they differ.
    std::string Marks(const VerdictNotes& notes, int story, const LimitTexts& limits);

    /// The mark of one note that stands in a heading.
    std::string Mark(VerdictNote note);

    /// What the marks mean; nothing when there are none.
    std::string Explained() const;

private:
    struct Note {
        bool isUsed = false;
        std::vector<FilledWords> limits;  ///< that differ
    };

    const Sheet& sheet_;
    std::array<Note, 11> notes_;  ///< by number
};

/// All notes and what they mean, as a table.
std::string AllNotesTable();
