// SPDX-License-Identifier: MIT
#include "adapters/qt/qttimer.h"

namespace velt::qt {

QtTimer::QtTimer(GatedControl& control) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, &control] {
        control.event(this, [this] {
            if (enabled_) Tick.raise();  // a handler in between may have switched it off
        });
    });
}

void QtTimer::Interval(int milliseconds) {
    interval_ = milliseconds;
    apply();
}

void QtTimer::Enabled(bool enabled) {
    enabled_ = enabled;
    apply();
}

void QtTimer::apply() {
    if (enabled_ && interval_ > 0)
        timer_.start(interval_);
    else
        timer_.stop();
}

}  // namespace velt::qt
