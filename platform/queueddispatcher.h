// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dispatcher.h"
#include "platform/export.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace velt {

/// For programs without a window whose services send events (an OPC server): what other threads
/// post waits until the program's one thread takes it in runUntil().
class VELT_API QueuedDispatcher final : public Dispatcher {
public:
    void run(std::function<void(std::stop_token)> work) override { work({}); }
    void post(std::function<void()> call) override;
    void yield() override {}

    /// Carries out what has been posted and what comes in, until `done` holds (looked at after
    /// each call) or the time is up. Returns whether it holds.
    bool runUntil(const std::function<bool()>& done,
                  std::chrono::steady_clock::time_point deadline);

private:
    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<std::function<void()>> calls_;
};

}  // namespace velt
