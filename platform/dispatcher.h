// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <functional>
#include <stop_token>

namespace velt {

/// How an adapter carries out what can take long, and how it gets back to the user-interface
/// thread. The logic of the controls is synchronous; this keeps the window alive meanwhile.
class VELT_API Dispatcher {
public:
    virtual ~Dispatcher() = default;

    /// Runs `work` away from the user-interface thread and returns when it has ended, passing on
    /// what it threw. When the wait is cancelled, raises RuntimeError 3059 at once and leaves the
    /// work to end by itself: `work` must own everything it touches, and should watch its token.
    virtual void run(std::function<void(std::stop_token)> work) = 0;

    /// Queues `call` for the user-interface thread; callable from any thread.
    virtual void post(std::function<void()> call) = 0;

    /// Lets pending paint events through once. Operator input is not among them.
    virtual void yield() = 0;
};

/// For the command line and for tests: everything runs on the caller's thread, at once.
class VELT_API InlineDispatcher final : public Dispatcher {
public:
    void run(std::function<void(std::stop_token)> work) override { work({}); }
    void post(std::function<void()> call) override { call(); }
    void yield() override {}
};

}  // namespace velt
