#pragma once

#include <cstdint>

#include "host/host_queries.h"
#include "host/recorded_model.h"

/// Asks `host` once each question of a run that `memory` holds the answer to, in an order much
/// like that of the run: what a run costs when it consists of its distinct questions alone. Gives
/// their number.
std::uint64_t AskAgain(const RecordedModel& memory, HostQueries& host);
