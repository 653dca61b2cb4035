// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace velt::panel {

/// SIGTERM, SIGINT and SIGHUP (a logout, a service that is stopped, Ctrl+C) end the panel as
/// closing its window does, so that the operator's choices are saved.
class EndSignals final : public QObject {
    Q_OBJECT
public:
    /// Holds the signals back in the calling thread and in those that it starts from now on: to be
    /// called before there are any.
    static void holdBack();

    /// Calls `end` from the event loop when one of them has come in.
    explicit EndSignals(std::function<void()> end);
    ~EndSignals() override;

private:
    std::function<void()> end_;
    int descriptor_;
};

}  // namespace velt::panel
