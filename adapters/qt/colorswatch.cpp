// SPDX-License-Identifier: MIT
#include "adapters/qt/colorswatch.h"

#include "adapters/qt/colors.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace velt::qt {

ColorSwatch::ColorSwatch(const QString& text, QWidget* parent) : QWidget(parent), text_(text) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    single_.setSingleShot(true);
    connect(&single_, &QTimer::timeout, this, &ColorSwatch::clicked);
}

void ColorSwatch::setColor(const QColor& color) {
    color_ = color;
    update();
}

void ColorSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(color_);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(area);
    painter.setPen(readableOn(color_));
    painter.drawText(area, Qt::AlignCenter, text_);
    painter.setBrush(Qt::NoBrush);
    if (hasFocus()) painter.drawRect(area.adjusted(2, 2, -2, -2));
}

void ColorSwatch::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
}

void ColorSwatch::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasPressed = std::exchange(pressed_, false);
    if (wasPressed && rect().contains(event->position().toPoint()))
        single_.start(QApplication::doubleClickInterval());
}

void ColorSwatch::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    single_.stop();
    emit doubleClicked();
}

void ColorSwatch::keyPressEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;  // a key that is held is one press
    switch (event->key()) {
        case Qt::Key_Space: emit clicked(); break;
        case Qt::Key_Return:
        case Qt::Key_Enter: emit doubleClicked(); break;
        default: QWidget::keyPressEvent(event);
    }
}

}  // namespace velt::qt
