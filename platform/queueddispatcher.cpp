// SPDX-License-Identifier: MIT
#include "platform/queueddispatcher.h"

#include <utility>

namespace velt {

void QueuedDispatcher::post(std::function<void()> call) {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
    posted_.notify_all();
}

bool QueuedDispatcher::runUntil(const std::function<bool()>& done,
                                std::chrono::steady_clock::time_point deadline) {
    while (!done()) {
        std::unique_lock lock(mutex_);
        if (!posted_.wait_until(lock, deadline, [this] { return !calls_.empty(); })) return false;
        const std::function<void()> call = std::move(calls_.front());
        calls_.pop_front();
        lock.unlock();
        call();
    }
    return true;
}

}  // namespace velt
