#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "route2/findings.h"
#include "route2/remark_texts.h"

/// One cause of a remark, and the places where it was found. Places of one cause make one remark.
class RemarkCause {
public:
    /// `key` names the texts; its first three characters are the remark's id.
    RemarkCause(std::string_view key, RemarkKind kind) : key_(key), kind_(kind) {}

    /// A place, described for the list of places; story 0 for one that is about no story.
    void Add(int story, BothLanguages description);
    void AddStory(int story);
    void AddMember(std::int32_t member);
    void MakeError() { kind_ = RemarkKind::kError; }

    /// A value for another word of the texts.
    void Set(std::string_view word, const std::string& value) { values_.emplace_back(word, value); }
    void Set(std::string_view word, BothLanguages value) {
        values_.emplace_back(word, std::move(value));
    }

    /// Appends the remark, unless no place was added.
    void AppendTo(std::vector<Remark>& remarks) const;

private:
    std::string_view key_;
    RemarkKind kind_;
    std::vector<int> stories_;
    std::vector<std::int32_t> members_;
    std::vector<BothLanguages> places_;
    std::vector<RemarkValue> values_;
};

/// "story 3", "3階".
BothLanguages StoryName(int story);

/// "stories 1, 3 to 5", "1、3〜5階". `stories` ascend.
BothLanguages StoriesName(const std::vector<int>& stories);

/// "story 3 X", "3階 X方向".
BothLanguages DirectionName(const Findings& findings, int story, std::size_t axis);

/// "stories 1 to 8 X", "1〜8階 X方向".
BothLanguages DirectionName(const Findings& findings, const std::vector<int>& stories,
                            std::size_t axis);

/// `one` followed by a text that is the same in both languages, or by one for each.
BothLanguages operator+(BothLanguages one, const std::string& same);
BothLanguages operator+(BothLanguages one, const BothLanguages& other);
