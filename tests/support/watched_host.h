#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "host/passing_host.h"

/// Calls `beforeCall` with the number of the call, from 1, before it passes a question on: to fail
/// one, or to change the world between two.
class WatchedHost : public PassingHost {
public:
    using BeforeCall = std::function<void(std::size_t call)>;

    /// Borrows `host`.
    WatchedHost(HostQueries& host, BeforeCall beforeCall)
        : PassingHost(host), beforeCall_(std::move(beforeCall)) {}

    /// Calls so far.
    std::size_t Calls() const { return calls_; }

protected:
    void BeforeQuestion() override {
        ++calls_;
        beforeCall_(calls_);
    }

private:
    BeforeCall beforeCall_;
    std::size_t calls_ = 0;
};
