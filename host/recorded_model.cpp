#include "host/recorded_model.h"

#include <algorithm>

namespace {

constexpr std::uint32_t kNoAnswer = 0xFFFFFFFF;
constexpr std::size_t kPositionsPerPage = 512;

using Positions = std::unordered_map<std::int32_t, std::size_t>;

std::optional<std::size_t> Find(const Positions& positions, std::int32_t number) {
    const auto found = positions.find(number);
    if (found == positions.end()) return std::nullopt;
    return found->second;
}

template <typename Record>
std::size_t Add(Positions& positions, std::vector<Record>& records, std::int32_t number) {
    const auto [entry, isNew] = positions.try_emplace(number, records.size());
    if (isNew) {
        records.emplace_back();
        records.back().number = number;
    }
    return entry->second;
}

}  // namespace

const SixDoubles* AnswerTable::Find(std::size_t position, std::int32_t loadCase) const {
    const auto row = rows_.find(loadCase);
    const std::size_t page = position / kPositionsPerPage;
    if (row == rows_.end() || page >= row->second.size() || row->second[page].empty())
        return nullptr;
    const std::uint32_t slot = row->second[page][position % kPositionsPerPage];
    return slot == kNoAnswer ? nullptr : &answers_[slot];
}

void AnswerTable::Store(std::size_t position, std::int32_t loadCase, const SixDoubles& answer) {
    Row& row = rows_[loadCase];
    const std::size_t page = position / kPositionsPerPage;
    if (page >= row.size()) row.resize(page + 1);
    if (row[page].empty()) row[page].assign(kPositionsPerPage, kNoAnswer);
    std::uint32_t& slot = row[page][position % kPositionsPerPage];
    if (slot == kNoAnswer) {
        slot = static_cast<std::uint32_t>(answers_.size());
        answers_.push_back(answer);
    } else {
        answers_[slot] = answer;
    }
}

std::vector<std::int32_t> AnswerTable::LoadCases() const {
    std::vector<std::int32_t> loadCases;
    for (const auto& row : rows_)
        loadCases.push_back(row.first);
    std::sort(loadCases.begin(), loadCases.end());
    return loadCases;
}

std::optional<std::size_t> RecordedModel::FindNode(std::int32_t number) const {
    return Find(nodePositions_, number);
}

std::optional<std::size_t> RecordedModel::FindMember(std::int32_t number) const {
    return Find(memberPositions_, number);
}

std::size_t RecordedModel::AddNode(std::int32_t number) {
    return Add(nodePositions_, nodes, number);
}

std::size_t RecordedModel::AddMember(std::int32_t number) {
    return Add(memberPositions_, members, number);
}
