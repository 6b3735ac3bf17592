#include "route2/remark_cause.h"

#include <algorithm>
#include <utility>

void RemarkCause::AddStory(int story) {
    if (std::ranges::find(stories_, story) == stories_.end()) stories_.push_back(story);
}

void RemarkCause::Add(int story, BothLanguages description) {
    if (story != 0) AddStory(story);
    if (!description.en.empty()) places_.push_back(std::move(description));
}

void RemarkCause::AddMember(std::int32_t member) {
    if (std::ranges::find(members_, member) == members_.end()) members_.push_back(member);
}

void RemarkCause::AppendTo(std::vector<Remark>& remarks) const {
    if (stories_.empty() && members_.empty() && places_.empty()) return;
    std::vector<BothLanguages> numbers;
    for (const std::int32_t member : members_)
        numbers.push_back({std::to_string(member), std::to_string(member)});
    std::vector<RemarkValue> values = values_;
    values.emplace_back("items", Listed(places_));
    values.emplace_back("members", Listed(numbers));

    const RemarkTexts& texts = RemarkTextsOf(key_);
    const BothLanguages found = FillIn(texts.en, texts.ja, values);
    const BothLanguages action = FillIn(texts.doEn, texts.doJa, values);
    Remark remark{std::string(key_.substr(0, 3)),
                  kind_,
                  stories_,
                  members_,
                  found.en,
                  found.ja,
                  action.en,
                  action.ja};
    std::ranges::sort(remark.stories);
    remarks.push_back(std::move(remark));
}

BothLanguages StoryName(int story) {
    const std::string number = std::to_string(story);
    return {"story " + number, number + "階"};
}

BothLanguages StoriesName(const std::vector<int>& stories) {
    if (stories.size() == 1) return StoryName(stories.front());
    std::vector<BothLanguages> runs;
    for (std::size_t i = 0; i < stories.size();) {
        std::size_t last = i;
        while (last + 1 < stories.size() && stories[last + 1] == stories[last] + 1)
            ++last;
        const std::string from = std::to_string(stories[i]), to = std::to_string(stories[last]);
        BothLanguages run{from, from};
        if (last > i) {
            run.en.append(" to ").append(to);
            run.ja.append("〜").append(to);
        }
        runs.push_back(std::move(run));
        i = last + 1;
    }
    return BothLanguages{"stories ", ""} + Listed(runs) + BothLanguages{"", "階"};
}

BothLanguages DirectionName(const Findings& findings, int story, std::size_t axis) {
    return DirectionName(findings, std::vector<int>{story}, axis);
}

BothLanguages DirectionName(const Findings& findings, const std::vector<int>& stories,
                            std::size_t axis) {
    const std::string axisName(1, axis == kX ? 'X' : findings.SecondDirection());
    return StoriesName(stories) + BothLanguages{" " + axisName, " " + axisName + "方向"};
}

BothLanguages operator+(BothLanguages one, const std::string& same) {
    return std::move(one) + BothLanguages{same, same};
}

BothLanguages operator+(BothLanguages one, const BothLanguages& other) {
    one.en += other.en;
    one.ja += other.ja;
    return one;
}
