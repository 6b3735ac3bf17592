#include "input/lint_finding.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

constexpr std::size_t kMostListed = 12;
constexpr std::size_t kMostNumbers = 2000;  // stories or members of one finding

// Two findings that read alike are one.
std::string WhatIsTold(const LintFinding& finding) {
    std::string told(finding.rule->id);
    told += finding.rule->en;
    for (const LintParameter& parameter : finding.parameters)
        told += '\0' + parameter.en;
    return told + '\0' + finding.write;
}

void AddMissing(std::vector<std::int32_t>& numbers, const std::vector<std::int32_t>& more) {
    for (const std::int32_t number : more)
        if (numbers.size() < kMostNumbers && std::ranges::find(numbers, number) == numbers.end())
            numbers.push_back(number);
}

bool StandsBefore(const InputPlace& a, const InputPlace& b) {
    return std::tuple(a.line, a.offset) < std::tuple(b.line, b.offset);
}

// The same again, elsewhere: the first place is the finding's own.
void AddPlace(LintFinding& finding, InputPlace place) {
    if (StandsBefore(place, finding.place)) std::swap(place, finding.place);
    ++finding.furtherCount;
    std::vector<InputPlace>& places = finding.furtherPlaces;
    places.insert(std::ranges::upper_bound(places, place, StandsBefore), place);
    if (places.size() > kMostListed) places.pop_back();
}

bool ComesBefore(const LintFinding& a, const LintFinding& b) {
    const auto key = [](const LintFinding& finding) {
        const bool hasNoLine = finding.place.line == 0;
        const std::int32_t story =
            hasNoLine && !finding.stories.empty() ? finding.stories.front() : 0;
        return std::tuple(hasNoLine, finding.place.line, finding.place.offset, story);
    };
    return key(a) < key(b);
}

}  // namespace

LintFinding& LintFinding::With(std::string_view name, const std::string& value) {
    return With(name, value, value);
}

LintFinding& LintFinding::With(std::string_view name, const std::string& en,
                               const std::string& ja) {
    parameters.push_back({name, en, ja});
    return *this;
}

LintFinding& LintFinding::Write(std::string line) {
    write = std::move(line);
    return *this;
}

LintFinding& LintFinding::Story(std::int32_t story) {
    AddMissing(stories, {story});
    return *this;
}

LintFinding& LintFinding::Member(std::int32_t member) {
    AddMissing(members, {member});
    return *this;
}

void LintFindingList::Add(LintFinding finding) {
    const auto [found, isNew] = positions_.try_emplace(WhatIsTold(finding), findings_.size());
    if (!isNew) {
        LintFinding& first = findings_[found->second];
        AddPlace(first, finding.place);
        AddMissing(first.stories, finding.stories);
        AddMissing(first.members, finding.members);
    } else if (std::size_t& kept = kept_[static_cast<std::size_t>(finding.rule->kind)];
               kept < kMost) {
        ++kept;
        findings_.push_back(std::move(finding));
    } else {
        positions_.erase(found);
        ++leftOut_;
    }
}

std::vector<LintFinding> LintFindingList::Sorted() const {
    std::vector<LintFinding> sorted = findings_;
    std::ranges::stable_sort(sorted, ComesBefore);
    return sorted;
}

bool HasFinding(const std::vector<LintFinding>& findings, std::string_view id) {
    return std::ranges::any_of(findings, [id](const LintFinding& f) { return f.rule->id == id; });
}

std::string NumberList(const std::vector<std::int32_t>& numbers) {
    std::string list;
    for (std::size_t i = 0; i < std::min(numbers.size(), kMostListed); ++i)
        list += (i == 0 ? "" : ", ") + std::to_string(numbers[i]);
    if (numbers.size() > kMostListed)
        list += ", ... (+" + std::to_string(numbers.size() - kMostListed) + ")";
    return list;
}
