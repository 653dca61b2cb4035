// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gate.h"
#include "adapters/qt/inputdiscarder.h"
#include "platform/dispatcher.h"

#include <QEventLoop>
#include <QObject>

#include <chrono>
#include <memory>
#include <vector>

namespace velt::qt {

/// Runs work on a thread of its own while the user-interface thread turns an event loop inside the
/// gate. Work that takes longer than a moment shows a small window from which the operator can
/// cancel it. To be made on the user-interface thread; called from another thread, run() works
/// there. Without a QApplication everything runs on the caller's thread.
class VELT_API QtDispatcher final : public Dispatcher {
public:
    explicit QtDispatcher(Gate& gate = Gate::ofProcess());
    /// Asks cancelled works that still run to stop, and gives them a second to do so.
    ~QtDispatcher() override;

    void run(std::function<void(std::stop_token)> work) override;
    void post(std::function<void()> call) override;
    void yield() override;

private:
    struct Job;
    /// How long to wait without an event loop. Many short works in a row must not add up.
    std::chrono::milliseconds patience();
    void waitFor(Job& job, QEventLoop& loop);

    Gate& gate_;
    InputDiscarder discarder_;
    QObject uiThread_;  ///< the address of posted calls
    std::vector<std::shared_ptr<Job>> cancelled_;
    bool turnExpected_ = false;  ///< no event loop has turned since lastTurn_
    std::chrono::steady_clock::time_point lastTurn_;
};

}  // namespace velt::qt
