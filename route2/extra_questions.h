#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/host_queries.h"

/// What the figures ask a host beyond the run, after its results are closed.
///
/// A question that fails has no answer, and the figures that need it are not formed; it never ends
/// anything. Nothing is asked when the run did not come to its end: the host may be gone.
class ExtraQuestions {
public:
    /// Borrows `host`.
    ExtraQuestions(HostQueries& host, bool mayAsk) : host_(host), mayAsk_(mayAsk) {}

    std::optional<SixDoubles> EndForces(std::int32_t member, std::int32_t end,
                                        std::int32_t loadCase);
    std::optional<SixDoubles> Displacements(std::int32_t node, std::int32_t loadCase);

    int Failures() const { return failures_; }
    const std::string& FirstFailure() const { return firstFailure_; }  ///< what the host said

private:
    HostQueries& host_;
    bool mayAsk_;
    int failures_ = 0;
    std::string firstFailure_;

    void Note(const HostCallError& error);
};
