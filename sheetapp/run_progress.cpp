#include "sheetapp/run_progress.h"

#include <algorithm>

namespace {

// What Windows calls "the operation was cancelled by the user", as a status of a call.
constexpr std::int32_t kCancelledStatus = static_cast<std::int32_t>(0x800704C7);

}  // namespace

RunCancelled::RunCancelled() : HostCallError(kCancelledStatus, "the run was cancelled") {}

void RunProgress::Begin() {
    const std::lock_guard lock(mutex_);
    view_ = {};
    begin_ = Clock::now();
    cancelled_ = false;
}

void RunProgress::Clear() {
    const std::lock_guard lock(mutex_);
    view_.lines.clear();
}

void RunProgress::Append(StatusText line) {
    const std::lock_guard lock(mutex_);
    view_.lines.push_back(line);
}

void RunProgress::Answered(const QuestionProgress& progress) {
    const std::lock_guard lock(mutex_);
    view_.hostIsBusy = false;
    view_.answered = progress.answered;
    const double share = ShareDone(progress.answered, ExpectedQuestionsOfRun(progress.counts));
    view_.share = std::max(view_.share, share);
    if (cancelled_) throw RunCancelled();
}

bool RunProgress::RejectedByHost() {
    const std::lock_guard lock(mutex_);
    view_.hostIsBusy = true;
    return !cancelled_;
}

void RunProgress::Cancel() {
    const std::lock_guard lock(mutex_);
    cancelled_ = true;
}

bool RunProgress::IsCancelled() const {
    const std::lock_guard lock(mutex_);
    return cancelled_;
}

RunProgress::View RunProgress::Look() const {
    const std::lock_guard lock(mutex_);
    View view = view_;
    view.elapsed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin_);
    return view;
}
