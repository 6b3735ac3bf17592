#include "cli/terminal_progress.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

#include "host/counting_host.h"
#include "platform/terminal.h"

namespace {

// Often enough to be seen moving, and far less than the questions cost.
constexpr std::chrono::milliseconds kBetweenLines{250};

}  // namespace

std::string ProgressText(std::size_t answered, double share, std::chrono::seconds elapsed) {
    const auto elapsedSeconds = static_cast<std::size_t>(std::max<long long>(elapsed.count(), 0));
    char time[32];
    std::snprintf(time, sizeof time, "%zu:%02zu", elapsedSeconds / 60, elapsedSeconds % 60);
    std::string text = "host: " + std::to_string(answered) + " answers, ";
    if (elapsedSeconds > 0) text += std::to_string(answered / elapsedSeconds) + " a second, ";
    text += time;
    if (share > 0.0) text += ", about " + std::to_string(static_cast<int>(100.0 * share)) + " %";
    return text;
}

TerminalProgress::TerminalProgress() : TerminalProgress(std::cerr, StandardErrorIsTerminal()) {}

TerminalProgress::TerminalProgress(std::ostream& out, bool isShown)
    : out_(out), isShown_(isShown) {}

void TerminalProgress::Show(std::size_t answered, std::size_t expected) {
    if (!isShown_) return;
    const Clock::time_point now = Clock::now();
    if (now < next_) return;
    next_ = now + kBetweenLines;
    share_ = std::max(share_, ShareDone(answered, expected));
    const std::string text = ProgressText(
        answered, share_, std::chrono::duration_cast<std::chrono::seconds>(now - begin_));
    const std::size_t left = width_ > text.size() ? width_ - text.size() : 0;
    // In one piece: what is not buffered would be drawn letter by letter.
    out_ << '\r' + text + std::string(left, ' ') << std::flush;
    width_ = text.size();
}

void TerminalProgress::Clear() {
    if (width_ == 0) return;
    out_ << '\r' + std::string(width_, ' ') + '\r' << std::flush;
    width_ = 0;
}
