// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "platform/widgets.h"

#include <QTimer>

namespace velt::qt {

class QtTimer final : public Timer {
public:
    explicit QtTimer(GatedControl& control);
    [[nodiscard]] int Interval() const override { return interval_; }
    void Interval(int milliseconds) override;
    [[nodiscard]] bool Enabled() const override { return enabled_; }
    void Enabled(bool enabled) override;

private:
    void apply();

    int interval_ = 0;
    bool enabled_ = false;
    QTimer timer_;
};

}  // namespace velt::qt
