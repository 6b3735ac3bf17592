#include "host/recorded_model.h"

#include <algorithm>

namespace {

template <typename Record>
std::size_t AddRecord(NumberPositions& positions, std::vector<Record>& records,
                      std::int32_t number) {
    const std::size_t position = positions.Add(number, records.size());
    if (position == records.size()) {
        records.emplace_back();
        records.back().number = number;
    }
    return position;
}

// Per position, whether there is any answer about it.
std::vector<bool> PositionsWithAnswers(const std::array<AnswerTable, 2>& tables,
                                       std::size_t positions) {
    std::vector<bool> found(positions);
    for (const AnswerTable& table : tables)
        table.ForEach([&found](std::size_t position, std::int32_t, const SixDoubles&) {
            found[position] = true;
        });
    return found;
}

}  // namespace

const SixDoubles* AnswerTable::Find(std::size_t position, std::int32_t loadCase) const {
    const auto found = rowPositions_.Find(loadCase);
    if (!found) return nullptr;
    const Row& row = rows_[*found];
    const std::size_t place = position / kPositionsPerPage;
    if (place >= row.size() || row[place] == kNoPage) return nullptr;
    const Page& page = pages_[row[place]];
    const std::uint16_t slot = page.slots[position % kPositionsPerPage];
    return slot == kNoAnswer ? nullptr : &page.answers[slot];
}

AnswerTable::Page& AnswerTable::PageOf(std::size_t position, std::int32_t loadCase) {
    const std::size_t number = rowPositions_.Add(loadCase, rows_.size());
    if (number == rows_.size()) {
        rows_.emplace_back();
        loadCases_.push_back(loadCase);
    }
    Row& row = rows_[number];
    const std::size_t place = position / kPositionsPerPage;
    if (place >= row.size()) row.resize(place + 1, kNoPage);
    if (row[place] == kNoPage) {
        pages_.push_back({std::vector<std::uint16_t>(kPositionsPerPage, kNoAnswer), {}});
        row[place] = static_cast<std::uint32_t>(pages_.size() - 1);
    }
    return pages_[row[place]];
}

void AnswerTable::Store(std::size_t position, std::int32_t loadCase, const SixDoubles& answer) {
    Page& page = PageOf(position, loadCase);
    std::uint16_t& slot = page.slots[position % kPositionsPerPage];
    if (slot != kNoAnswer) {
        page.answers[slot] = answer;
        return;
    }
    page.answers.push_back(answer);
    slot = static_cast<std::uint16_t>(page.answers.size() - 1);
    ++size_;
}

std::vector<std::int32_t> AnswerTable::LoadCases() const {
    std::vector<std::int32_t> loadCases = loadCases_;
    std::sort(loadCases.begin(), loadCases.end());
    return loadCases;
}

std::size_t RecordedModel::AddNode(std::int32_t number) {
    return AddRecord(nodePositions_, nodes, number);
}

std::size_t RecordedModel::AddMember(std::int32_t number) {
    return AddRecord(memberPositions_, members, number);
}

std::optional<std::int32_t> RecordedModel::MemberWithBothKindsOfForces() const {
    if (endForcesGlobal[0].size() + endForcesGlobal[1].size() == 0) return std::nullopt;
    const auto own = PositionsWithAnswers(endForces, members.size());
    const auto global = PositionsWithAnswers(endForcesGlobal, members.size());
    for (std::size_t i = 0; i < members.size(); ++i)
        if (own[i] && global[i]) return members[i].number;
    return std::nullopt;
}
