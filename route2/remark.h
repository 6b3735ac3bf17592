#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// How much a remark matters to whoever hands the results in.
enum class RemarkKind {
    kError,    ///< to be mended: the results cannot be handed in
    kWarning,  ///< to be looked at
    kNote,     ///< to be known
};

/// "error", "warning", "note".
const char* TextOf(RemarkKind kind);

/// One remark on a run: one cause, with all the places where it was found.
struct Remark {
    std::string id;  ///< R01 to R32
    RemarkKind kind = RemarkKind::kNote;
    std::vector<int> stories;  ///< from 1, ascending; empty when it is about no story
    std::vector<std::int32_t> members;
    std::string en;  ///< what was found
    std::string ja;
    std::string doEn;  ///< what to do about it
    std::string doJa;
};
