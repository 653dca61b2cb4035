// SPDX-License-Identifier: MIT
#include "adapters/qt/qtframe.h"

#include "adapters/qt/colors.h"

#include <QApplication>
#include <QEvent>

namespace velt::qt {

QtFrame::QtFrame(QWidget* widget) : widget_(widget) { widget->installEventFilter(this); }

void QtFrame::BackColor(OleColor color) {
    back_ = color;
    apply();
}

void QtFrame::ForeColor(OleColor color) {
    fore_ = color;
    apply();
}

bool QtFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) apply();
    return QObject::eventFilter(watched, event);
}

void QtFrame::apply() {
    if (!widget_) return;
    const QPalette desktop = QApplication::palette();
    QPalette palette;
    if (back_) palette.setColor(QPalette::Window, toQColor(*back_, desktop));
    if (fore_) palette.setColor(QPalette::WindowText, toQColor(*fore_, desktop));
    widget_->setPalette(palette);
    widget_->setAutoFillBackground(back_.has_value());
}

}  // namespace velt::qt
