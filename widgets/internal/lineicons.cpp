// SPDX-License-Identifier: MIT
#include "widgets/internal/lineicons.h"

#include "adapters/qt/stateicon.h"
#include "connviewer/linestate.h"

#include <cstdint>
#include <iterator>

namespace velt::ui {
namespace {

const QColor Grey(0x75, 0x75, 0x75);
const QColor Amber(0xe0, 0xa0, 0x00);
const QColor Blue(0x1a, 0x66, 0xc2);

void stroke(QPainter& painter, const QColor& color) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void fill(QPainter& painter, const QColor& color) {
    painter.setBrush(color);
    painter.setPen(QPen(color.darker(150), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

/// An empty ring.
void disconnected(QPainter& painter) {
    stroke(painter, Grey);
    painter.drawEllipse(QRectF(2.5, 2.5, 11, 11));
}

/// A diamond with three dots.
void dialing(QPainter& painter) {
    fill(painter, Amber);
    painter.drawPolygon(QPolygonF({{8, 0.8}, {15.2, 8}, {8, 15.2}, {0.8, 8}}));
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap));
    for (const qreal x : {4.5, 8.0, 11.5}) painter.drawPoint(QPointF(x, 8));
}

/// A cross.
void disconnecting(QPainter& painter) {
    stroke(painter, Grey);
    painter.drawLine(QPointF(3.5, 3.5), QPointF(12.5, 12.5));
    painter.drawLine(QPointF(12.5, 3.5), QPointF(3.5, 12.5));
}

/// An arrow down to a line.
void downloading(QPainter& painter) {
    fill(painter, Blue);
    painter.drawPolygon(
        QPolygonF({{6, 1.5}, {10, 1.5}, {10, 6.5}, {13, 6.5}, {8, 11.5}, {3, 6.5}, {6, 6.5}}));
    stroke(painter, Blue);
    painter.drawLine(QPointF(2.5, 14), QPointF(13.5, 14));
}

}  // namespace

std::vector<qt::ListPicture> lineStatePictures() {
    // A disc with a tick and a square with a bar mean here what they mean in the item table.
    const QIcon icons[] = {qt::makeStateIcon(disconnected),  qt::makeStateIcon(dialing),
                           qt::stateIcon("verde"),           qt::stateIcon("rossa"),
                           qt::makeStateIcon(disconnecting), qt::makeStateIcon(downloading)};
    std::vector<qt::ListPicture> pictures;
    for (std::int32_t code = 0; code < std::ssize(icons); ++code)
        pictures.push_back({icons[code], QString::fromUtf8(lineState(code)->caption)});
    return pictures;
}

}  // namespace velt::ui
