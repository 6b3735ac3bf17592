#include "route2/remarks.h"

#include <algorithm>

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

std::vector<Remark> FormRemarks(const Findings& /*findings*/) {
    return {};
}

bool HasError(const std::vector<Remark>& remarks) {
    return CountOf(remarks, RemarkKind::kError) > 0;
}

int CountOf(const std::vector<Remark>& remarks, RemarkKind kind) {
    return static_cast<int>(std::ranges::count(remarks, kind, &Remark::kind));
}
