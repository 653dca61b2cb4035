// SPDX-License-Identifier: MIT
#pragma once

#include "platform/widgets.h"

#include <QPointer>
#include <QWidget>

namespace velt::qt {

/// The mouse pointer over a widget.
class QtPointer final : public Pointer {
public:
    explicit QtPointer(QWidget* widget) : widget_(widget) {}
    void MousePointer(int shape) override {
        if (!widget_) return;
        if (shape == Hourglass)
            widget_->setCursor(Qt::WaitCursor);
        else
            widget_->unsetCursor();
    }

private:
    QPointer<QWidget> widget_;
};

}  // namespace velt::qt
