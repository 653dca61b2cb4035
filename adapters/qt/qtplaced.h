// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"
#include "platform/widgets.h"

#include <QPointer>
#include <QWidget>

namespace velt::qt {

/// A widget whose size is not governed by a layout. Everything is 0 once it is gone.
class QtPlaced final : public Placed {
public:
    explicit QtPlaced(QWidget* widget) : widget_(widget) {}
    [[nodiscard]] int Left() const override { return widget_ ? widget_->x() * TwipsPerPixel : 0; }
    [[nodiscard]] int Top() const override { return widget_ ? widget_->y() * TwipsPerPixel : 0; }
    [[nodiscard]] int Width() const override {
        return widget_ ? widget_->width() * TwipsPerPixel : 0;
    }
    void Width(int twips) override {
        const int pixels = size(twips);
        if (widget_) widget_->resize(pixels, widget_->height());
    }
    [[nodiscard]] int Height() const override {
        return widget_ ? widget_->height() * TwipsPerPixel : 0;
    }
    void Height(int twips) override {
        const int pixels = size(twips);
        if (widget_) widget_->resize(widget_->width(), pixels);
    }

private:
    static int size(int twips) {
        if (twips < 0) throw RuntimeError(ErrorNumber::InvalidCall);
        return twips / TwipsPerPixel;
    }

    QPointer<QWidget> widget_;
};

/// A control on its host's form. Its inner size is what its frame, if it has one, leaves.
class QtSurface final : public Surface {
public:
    explicit QtSurface(QWidget* widget) : widget_(widget), outer_(widget) {}
    [[nodiscard]] int Width() const override { return outer_.Width(); }
    void Width(int twips) override { outer_.Width(twips); }
    [[nodiscard]] int Height() const override { return outer_.Height(); }
    void Height(int twips) override { outer_.Height(twips); }
    [[nodiscard]] int ScaleWidth() const override {
        return widget_ ? widget_->contentsRect().width() * TwipsPerPixel : 0;
    }
    [[nodiscard]] int ScaleHeight() const override {
        return widget_ ? widget_->contentsRect().height() * TwipsPerPixel : 0;
    }

private:
    QPointer<QWidget> widget_;
    QtPlaced outer_;
};

}  // namespace velt::qt
