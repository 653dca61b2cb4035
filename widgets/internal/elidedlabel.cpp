// SPDX-License-Identifier: MIT
#include "widgets/internal/elidedlabel.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace velt::ui {

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 8, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    const QRect place = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    setToolTip(shown == text() ? QString() : text());
    style()->drawItemText(&painter, place, static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}

}  // namespace velt::ui
