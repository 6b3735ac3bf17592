#include "route2/remarks.h"

#include <algorithm>

#include "route2/remark_rules.h"

const char* TextOf(RemarkKind kind) {
    switch (kind) {
        case RemarkKind::kError:
            return "error";
        case RemarkKind::kWarning:
            return "warning";
        case RemarkKind::kNote:
            return "note";
    }
    return "";
}

std::vector<Remark> FormRemarks(const Findings& findings) {
    std::vector<Remark> remarks;
    for (const auto rule :
         {RemarkOnCasesAndFloors, RemarkOnMembers, RemarkOnLoads, RemarkOnResults, RemarkOnTheRun})
        rule(findings, remarks);
    SortRemarks(remarks);
    return remarks;
}

void SortRemarks(std::vector<Remark>& remarks) {
    const auto firstStory = [](const Remark& remark) {
        return remark.stories.empty() ? 0 : remark.stories.front();
    };
    std::ranges::stable_sort(remarks, {}, &Remark::id);
    std::ranges::stable_sort(remarks, {}, firstStory);
    std::ranges::stable_sort(remarks, {}, &Remark::kind);
}

bool HasError(const std::vector<Remark>& remarks) {
    return CountOf(remarks, RemarkKind::kError) > 0;
}

int CountOf(const std::vector<Remark>& remarks, RemarkKind kind) {
    return static_cast<int>(std::ranges::count(remarks, kind, &Remark::kind));
}
