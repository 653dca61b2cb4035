// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <stop_token>

namespace velt::access {

/// What one query may take.
struct QueryLimits {
    std::chrono::milliseconds runTime{60'000};
    std::size_t memory = 1'000'000'000;       ///< bytes, roughly
    std::size_t statementLength = 1'000'000;  ///< bytes
};

/// Tells the parts of a running query whether to go on. Used by the query's thread alone.
class QueryControl {
public:
    QueryControl(std::stop_token stop, const QueryLimits& limits);
    QueryControl(const QueryControl&) = delete;
    QueryControl& operator=(const QueryControl&) = delete;

    /// True when the query was cancelled or has used up its time or memory.
    [[nodiscard]] bool mustStop() const;
    /// The same as an error: RuntimeError 3059, -2147217871 (time) or 14 (memory).
    void check() const;

private:
    friend class MemoryUse;
    [[nodiscard]] std::size_t memory() const;

    std::stop_token stop_;
    QueryLimits limits_;
    std::chrono::steady_clock::time_point deadline_;
    std::size_t memory_ = 0;  ///< of the query's parts outside the engine
    std::int64_t engineMemoryBefore_;
};

/// The memory that one part of a query holds, counted as long as this object lives.
class MemoryUse {
public:
    explicit MemoryUse(QueryControl& control) : control_(control) {}
    ~MemoryUse() { set(0); }
    MemoryUse(const MemoryUse&) = delete;
    MemoryUse& operator=(const MemoryUse&) = delete;

    void set(std::size_t bytes) {
        control_.memory_ += bytes;
        control_.memory_ -= bytes_;
        bytes_ = bytes;
    }

private:
    QueryControl& control_;
    std::size_t bytes_ = 0;
};

}  // namespace velt::access
