#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "sheet/model_members.h"
#include "sheet/sheet_content.h"
#include "sheet/sheet_names.h"

/// Digits of a file's SHA-256 that stand at the head and at the foot of the pages; all of them
/// stand in the appendix.
inline constexpr std::size_t kShownDigestDigits = 16;

/// What every section of a sheet reads. Borrows the content.
struct Sheet {
    const SheetContent& content;
    const Findings& findings;
    SheetNames names;
    ModelMembers model;

    explicit Sheet(const SheetContent& shown)
        : content(shown), findings(shown.findings), names(shown), model(shown.findings) {}

    std::size_t StoryCount() const { return findings.stories.size(); }
};

// The sections of a sheet, each added to the HTML, in their order. One that can be very long hands
// on and empties now and then what stands in `html`.

void HeadSection(const Sheet& sheet, std::string& html);
void SummarySection(const Sheet& sheet, std::string& html);       // S1
void StoriesSection(const Sheet& sheet, std::string& html);       // S2
void AngleSection(const Sheet& sheet, std::string& html);         // S3
void RatioSection(const Sheet& sheet, std::string& html);         // S4
void EccentricitySection(const Sheet& sheet, std::string& html);  // S5
void PlanSection(const Sheet& sheet, std::string& html);          // S6
void RemarkSection(const Sheet& sheet, std::string& html);        // S7
void MethodSection(const Sheet& sheet, std::string& html);        // S8
void InputSection(const Sheet& sheet, std::string& html);         // S9
void MemberAppendix(const Sheet& sheet, std::string& html,
                    const std::function<void()>& handOn);     // A1
void ResultsAppendix(const Sheet& sheet, std::string& html);  // A2
void FilesAppendix(const Sheet& sheet, std::string& html);    // A3
