#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <vector>

#include "compute/compute_run.h"
#include "host/counting_host.h"

/// A run was cancelled: it ends as at a failed host call.
class RunCancelled : public HostCallError {
public:
    RunCancelled();
};

/// How far a run is: told by the thread of the run, looked at by the thread of the window.
class RunProgress : public StatusList {
public:
    /// What the window shows.
    struct View {
        std::vector<StatusText> lines;
        std::size_t answered = 0;
        double share = 0.0;  ///< of the work, 0 to 1; it never goes back
        bool hostIsBusy = false;
        std::chrono::seconds elapsed{};
    };

    /// Forgets the run before.
    void Begin();

    // On the thread of the run.

    void Clear() override;
    void Append(StatusText line) override;

    /// Before each question. Throws RunCancelled once the run is cancelled.
    void Answered(const QuestionProgress& progress);

    /// When the host rejects a call: whether it is to be made again.
    bool RejectedByHost();

    // On the thread of the window.

    void Cancel();
    bool IsCancelled() const;
    View Look() const;

private:
    using Clock = std::chrono::steady_clock;

    mutable std::mutex mutex_;
    View view_;
    Clock::time_point begin_ = Clock::now();
    bool cancelled_ = false;
};
