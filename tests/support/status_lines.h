#pragma once

#include <string>
#include <vector>

#include "compute/compute_run.h"

/// A status list that keeps its lines as the user reads them.
class StatusLines : public StatusList {
public:
    void Clear() override {
        lines.clear();
        ++clears;
    }
    void Append(StatusText line) override { lines.emplace_back(TextOf(line)); }

    std::vector<std::string> lines;
    int clears = 0;
};
