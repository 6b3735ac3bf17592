// Rules on the load cases against the model.

#include <algorithm>

#include "lint/model_check.h"
#include "lint/model_rules.h"

namespace {

struct NamedCase {
    std::int32_t number = 1;
    InputPlace place;  // of the default: none
    bool isEarthquake = false;
};

std::vector<NamedCase> CasesOf(const ModelView& view) {
    std::vector<NamedCase> cases(3);
    const LoadCaseNumbers& read = view.Cases();
    if (read.dead) cases[0] = {read.dead->value, read.dead->place, false};
    for (const std::size_t direction : {std::size_t{0}, std::size_t{1}}) {
        NamedCase& named = cases[direction + 1];
        named.isEarthquake = true;
        if (!read.earthquake) continue;
        const Placed<std::int32_t>& number = (*read.earthquake)[direction];
        named = {number.value, number.place, true};
    }
    return cases;
}

bool IsCombination(const AijCodeRoute2& engine, std::size_t position) {
    return position >= static_cast<std::size_t>(engine.numPrimaryLoadCases);
}

void CheckCase(const NamedCase& named, const AijCodeRoute2& engine, LintFindingList& findings) {
    const auto& numbers = engine.loadCaseNumbers;
    const auto found = std::ranges::find(numbers, named.number);
    const std::string number = std::to_string(named.number);
    if (found == numbers.end()) {
        findings.Add(FindingOf(ModelRule::kM01, named.place)
                         .With("n", number)
                         .With("list", numbers.empty() ? "-" : NumberList(numbers)));
        return;
    }
    const auto position = static_cast<std::size_t>(found - numbers.begin());
    if (named.isEarthquake && IsCombination(engine, position))
        findings.Add(FindingOf(ModelRule::kM02, named.place).With("n", number));
}

}  // namespace

void CheckCasesOfModel(const ModelView& view, HostQueries& host, LintFindingList& findings) {
    for (const NamedCase& named : CasesOf(view))
        CheckCase(named, view.Engine(), findings);
    if (!host.AreResultsAvailable()) findings.Add(FindingOf(ModelRule::kM03));
}
