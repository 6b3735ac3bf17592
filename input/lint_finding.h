#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "input/input_place.h"

/// How bad a finding is.
enum class LintKind {
    kNote,     ///< allowed, but know it
    kWarning,  ///< probably not meant
    kError,    ///< the run fails, or takes what nobody can have meant, or drops what is written
};

/// One kind of mistake, with its texts; {name} stands for a parameter of the finding. Ids are for
/// good; an id with several rows has a kind or a wording for each case.
struct LintRule {
    std::string_view id;
    LintKind kind;
    std::string_view en;
    std::string_view ja;
    std::string_view adviceEn;  ///< what to write or to do; empty where the finding says it itself
    std::string_view adviceJa;
    std::string_view anchor;  ///< the section of docs/input-file.md that explains it
};

/// What a text of a rule calls {name}.
struct LintParameter {
    std::string_view name;
    std::string en;
    std::string ja;
};

/// One finding about an input file. All texts are UTF-8.
struct LintFinding {
    const LintRule* rule = nullptr;
    InputPlace place;  ///< of the field that is meant; no line for what no line is about
    std::vector<LintParameter> parameters;
    std::string write;  ///< the line as it should be written; empty where the rule's advice says it
    std::vector<std::int32_t> stories;
    std::vector<std::int32_t> members;
    std::vector<InputPlace> furtherPlaces;  ///< where the same is found again: the first of them
    std::size_t furtherCount = 0;           ///< how often it is found again

    LintFinding& With(std::string_view name, const std::string& value);
    LintFinding& With(std::string_view name, const std::string& en, const std::string& ja);
    LintFinding& Write(std::string line);
    LintFinding& Story(std::int32_t story);
    LintFinding& Member(std::int32_t member);
};

/// Findings as they come. The same finding at several places becomes one.
class LintFindingList {
public:
    /// Adds a finding; of each kind kMost are kept, so that no number of notes hides an error, and
    /// further ones only counted.
    void Add(LintFinding finding);

    /// All findings in the order in which they are told: by line, then column; those without a
    /// line come last, by story.
    std::vector<LintFinding> Sorted() const;

    /// How many more there were than are kept.
    std::size_t LeftOut() const { return leftOut_; }

private:
    static constexpr std::size_t kMost = 2000;

    std::vector<LintFinding> findings_;
    std::array<std::size_t, 3> kept_{};                       ///< by kind
    std::unordered_map<std::string, std::size_t> positions_;  ///< by what is told
    std::size_t leftOut_ = 0;
};

/// Whether any finding of the list has one of the ids.
bool HasFinding(const std::vector<LintFinding>& findings, std::string_view id);

/// The first twelve numbers, then how many more there are: "1, 2, 3".
std::string NumberList(const std::vector<std::int32_t>& numbers);
