#pragma once

#include <cstddef>
#include <string>

#include "sheet/sheet_content.h"
#include "sheet/sheet_names.h"

/// What every section of a sheet reads. Borrows the content.
struct Sheet {
    const SheetContent& content;
    const Findings& findings;
    SheetNames names;

    explicit Sheet(const SheetContent& shown)
        : content(shown), findings(shown.findings), names(shown) {}

    std::size_t StoryCount() const { return findings.stories.size(); }
};

// The sections of a sheet as HTML, in their order.

std::string HeadSection(const Sheet& sheet);
std::string SummarySection(const Sheet& sheet);       // S1
std::string StoriesSection(const Sheet& sheet);       // S2
std::string AngleSection(const Sheet& sheet);         // S3
std::string RatioSection(const Sheet& sheet);         // S4
std::string EccentricitySection(const Sheet& sheet);  // S5
std::string PlanSection(const Sheet& sheet);          // S6
std::string RemarkSection(const Sheet& sheet);        // S7
std::string MethodSection(const Sheet& sheet);        // S8
std::string InputSection(const Sheet& sheet);         // S9
std::string MemberAppendix(const Sheet& sheet);       // A1
std::string ResultsAppendix(const Sheet& sheet);      // A2
std::string FilesAppendix(const Sheet& sheet);        // A3
