#include "tests/fuzz/text_model.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kMaxNodes = 40;
constexpr std::size_t kMaxMembers = 60;
constexpr std::size_t kMaxLoadCases = 8;
constexpr std::int32_t kLowestCount = -3;
constexpr std::int32_t kHighestCount = 60;

// The blank-separated words of one line; a missing word reads as nothing, so as 0.
class Words {
public:
    explicit Words(std::string_view line) {
        while (!line.empty()) {
            const std::size_t end = std::min(line.find(' '), line.size());
            if (end > 0) words_.emplace_back(line.substr(0, end));
            line.remove_prefix(std::min(end + 1, line.size()));
        }
    }

    std::string Text(std::size_t index) const {
        return index < words_.size() ? words_[index] : std::string();
    }
    double Real(std::size_t index) const { return std::strtod(Text(index).c_str(), nullptr); }
    std::int32_t Integer(std::size_t index) const {
        const long value = std::strtol(Text(index).c_str(), nullptr, 10);
        constexpr long kLowest = std::numeric_limits<std::int32_t>::min();
        constexpr long kHighest = std::numeric_limits<std::int32_t>::max();
        return static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
    }
    std::int32_t Count(std::size_t index) const {
        return std::clamp(Integer(index), kLowestCount, kHighestCount);
    }

private:
    std::vector<std::string> words_;
};

void AddNode(RecordedModel& model, const Words& words) {
    if (model.nodeList->size() >= kMaxNodes) return;
    model.nodeList->push_back(words.Integer(1));
    RecordedNode& node = model.nodes[model.AddNode(words.Integer(1))];
    if (node.xyz) return;
    node.xyz = std::array{words.Real(2), words.Real(3), words.Real(4)};
    node.support = words.Text(5) == "s" ? 1 : 0;
}

void AddMember(RecordedModel& model, const Words& words) {
    if (model.memberList->size() >= kMaxMembers) return;
    model.memberList->push_back(words.Integer(1));
    RecordedMember& member = model.members[model.AddMember(words.Integer(1))];
    if (member.endNodes) return;
    member.endNodes = RecordedMember::EndNodes{words.Integer(2), words.Integer(3)};
    member.beta = words.Real(4);
}

void AddLoadCase(std::vector<std::int32_t>& list, const Words& words) {
    if (list.size() < kMaxLoadCases) list.push_back(words.Integer(1));
}

SixDoubles ThreeValues(const Words& words, std::size_t first) {
    return {words.Real(first), words.Real(first + 1), words.Real(first + 2), 0.0, 0.0, 0.0};
}

void AddDisplacement(RecordedModel& model, const Words& words) {
    if (const auto position = model.FindNode(words.Integer(2)))
        model.displacements.Store(*position, words.Integer(1), ThreeValues(words, 3));
}

void AddForce(RecordedModel& model, const Words& words) {
    const std::size_t end = words.Integer(3) == 0 ? 0 : 1;
    if (const auto position = model.FindMember(words.Integer(2)))
        model.endForces[end].Store(*position, words.Integer(1), ThreeValues(words, 4));
}

void ReadLine(RecordedModel& model, const Words& words) {
    const std::string keyword = words.Text(0);
    if (keyword == "units") model.baseUnitSystem = words.Integer(1);
    if (keyword == "zup") model.zUp = true;
    if (keyword == "noresults") model.resultsAvailable = false;
    if (keyword == "node") AddNode(model, words);
    if (keyword == "member") AddMember(model, words);
    if (keyword == "load") AddLoadCase(*model.primaryLoadCases, words);
    if (keyword == "comb") AddLoadCase(*model.loadCombinations, words);
    if (keyword == "disp") AddDisplacement(model, words);
    if (keyword == "force") AddForce(model, words);
    if (keyword == "nodecount") model.nodeCount = words.Count(1);
    if (keyword == "membercount") model.memberCount = words.Count(1);
    if (keyword == "loadcount") model.primaryLoadCaseCount = words.Count(1);
    if (keyword == "combcount") model.loadCombinationCount = words.Count(1);
}

void CountWhatIsNotCounted(std::optional<std::int32_t>& count,
                           const std::vector<std::int32_t>& list) {
    if (!count) count = static_cast<std::int32_t>(list.size());
}

}  // namespace

RecordedModel ReadTextModel(std::string_view text) {
    RecordedModel model;
    model.baseUnitSystem = 2;
    model.zUp = false;
    model.resultsAvailable = true;
    model.nodeList.emplace();
    model.memberList.emplace();
    model.primaryLoadCases.emplace();
    model.loadCombinations.emplace();
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        ReadLine(model, Words(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    CountWhatIsNotCounted(model.nodeCount, *model.nodeList);
    CountWhatIsNotCounted(model.memberCount, *model.memberList);
    CountWhatIsNotCounted(model.primaryLoadCaseCount, *model.primaryLoadCases);
    CountWhatIsNotCounted(model.loadCombinationCount, *model.loadCombinations);
    return model;
}
