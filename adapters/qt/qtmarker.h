// SPDX-License-Identifier: MIT
#pragma once

#include "platform/widgets.h"

#include <QPointer>
#include <QWidget>

namespace velt::qt {

/// A widget that is shown or not; it keeps its room.
class QtMarker final : public Marker {
public:
    explicit QtMarker(QWidget* widget) : widget_(widget), visible_(!widget->isHidden()) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
    }
    [[nodiscard]] bool Visible() const override { return visible_; }
    void Visible(bool visible) override {
        visible_ = visible;
        if (widget_) widget_->setVisible(visible);
    }

private:
    QPointer<QWidget> widget_;
    bool visible_;
};

}  // namespace velt::qt
