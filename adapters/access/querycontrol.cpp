// SPDX-License-Identifier: MIT
#include "adapters/access/querycontrol.h"

#include "adapters/access/queryerror.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>
#include <utility>

namespace velt::access {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::hours LongestRun{24 * 365};  // keeps the deadline within the clock's range

}  // namespace

QueryControl::QueryControl(std::stop_token stop, const QueryLimits& limits)
    : stop_(std::move(stop)),
      limits_(limits),
      deadline_(Clock::now() + std::min<std::chrono::milliseconds>(limits.runTime, LongestRun)),
      engineMemoryBefore_(sqlite3_memory_used()) {}

std::size_t QueryControl::memory() const {
    // The engine counts for the whole process; what other queries free meanwhile may come out
    // below zero.
    const std::int64_t engine = sqlite3_memory_used() - engineMemoryBefore_;
    return memory_ + static_cast<std::size_t>(std::max<std::int64_t>(engine, 0));
}

bool QueryControl::mustStop() const {
    return stop_.stop_requested() || Clock::now() > deadline_ || memory() > limits_.memory;
}

void QueryControl::check() const {
    if (!mustStop()) return;
    if (stop_.stop_requested()) throw RuntimeError(ErrorNumber::Cancelled);
    if (Clock::now() > deadline_)
        throw RuntimeError(queryerror::TimeExpired,
                           "Tempo scaduto: la query dura più di " +
                               std::to_string(limits_.runTime.count() / 1000) + " secondi");
    throw RuntimeError(queryerror::OutOfMemory,
                       "Memoria insufficiente: la query ne richiede troppa");
}

}  // namespace velt::access
