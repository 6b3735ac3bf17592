#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

/// How far the questions to the running host are, as a line that is written over: answers, how many
/// come in a second, how long it has taken, and about which part of the work that is.
/// "host: 12345 answers, 1830 a second, 0:07, about 42 %". `share` 0: not known yet.
std::string ProgressText(std::size_t answered, double share, std::chrono::seconds elapsed);

/// That line on standard error while a command asks the host, where somebody may be looking at the
/// terminal: there can be millions of questions. Nothing where standard error is no terminal.
class TerminalProgress {
public:
    /// As a command makes it: on standard error.
    TerminalProgress();

    TerminalProgress(std::ostream& out, bool isShown);

    /// Shows the line when it is time for a new one. `expected` 0: not known yet. The part of the
    /// work never goes back, whatever is expected later.
    void Show(std::size_t answered, std::size_t expected);

    /// Takes the line away, before something else is printed. It comes back when it is time for a
    /// new one.
    void Clear();

private:
    using Clock = std::chrono::steady_clock;

    std::ostream& out_;
    bool isShown_;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point next_ = begin_;
    double share_ = 0.0;
    std::size_t width_ = 0;  ///< of the line that stands there
};
