// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dispatcher.h"

#include <functional>
#include <mutex>

namespace velt::opcua {

/// The way from sessions' threads to the user-interface thread. Threads may outlive the dispatcher:
/// after close() what they post is dropped.
class Mailbox {
public:
    explicit Mailbox(Dispatcher& dispatcher) : dispatcher_(&dispatcher) {}

    void post(std::function<void()> call) {
        const std::lock_guard lock(mutex_);
        if (dispatcher_) dispatcher_->post(std::move(call));
    }
    void close() {
        const std::lock_guard lock(mutex_);
        dispatcher_ = nullptr;
    }

private:
    std::mutex mutex_;
    Dispatcher* dispatcher_;
};

}  // namespace velt::opcua
