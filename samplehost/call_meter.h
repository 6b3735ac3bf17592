#pragma once

#include <chrono>
#include <map>
#include <string>

/// Counts the calls that reach the host and makes each of them take a little longer, as a busy
/// host would.
class CallMeter {
public:
    using Delay = std::chrono::duration<double, std::milli>;

    explicit CallMeter(Delay delayPerCall) : delay_(delayPerCall) {}

    /// Waits, then counts a call of this name.
    void Answered(const std::string& name);

    /// The same for a call that the host does not offer in this form.
    void Refused();

    long RefusedCalls() const { return refused_; }
    long TotalCalls() const;

    /// One line per name, "NAME COUNT", then "Refused COUNT".
    std::string Report() const;

private:
    void Wait() const;

    Delay delay_;
    std::map<std::string, long> answered_;
    long refused_ = 0;
};
