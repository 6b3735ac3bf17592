#pragma once

#include <functional>
#include <ostream>
#include <vector>

#include "app/compute_run.h"

/// A status list that keeps its lines.
class StatusLines : public StatusList {
public:
    void Clear() override { lines.clear(); }
    void Append(StatusText line) override {
        lines.push_back(line);
        if (onAppend) onAppend(line);
    }

    std::vector<StatusText> lines;
    std::function<void(StatusText)> onAppend;  ///< called after each line
};

inline void PrintTo(StatusText line, std::ostream* out) {
    *out << '"' << TextOf(line) << '"';
}
