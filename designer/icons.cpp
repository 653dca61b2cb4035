// SPDX-License-Identifier: MIT
#include "designer/icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <functional>
#include <map>

namespace velt::designer {
namespace {

const QColor Frame(70, 80, 95);
const QColor Paper(250, 250, 250);

/// A table whose second column is live values.
void drawOpc(QPainter& painter) {
    painter.setPen(QPen(Frame, 1));
    for (const int y : {8, 13, 18}) {
        painter.drawLine(4, y, 11, y);
        painter.fillRect(QRect(14, y - 1, 5, 3), QColor(30, 140, 60));
    }
}

/// A warning triangle before lines of a list.
void drawAlarms(QPainter& painter) {
    QPainterPath triangle;
    triangle.moveTo(8, 6);
    triangle.lineTo(13, 15);
    triangle.lineTo(3, 15);
    triangle.closeSubpath();
    painter.fillPath(triangle, QColor(210, 120, 0));
    painter.setPen(QPen(Frame, 1));
    for (const int y : {8, 12, 16}) painter.drawLine(15, y, 20, y);
}

void drawTrend(QPainter& painter) {
    painter.setPen(QPen(QColor(30, 90, 190), 1.6));
    painter.drawPolyline(QPolygonF({{4, 16}, {8, 10}, {11, 13}, {15, 6}, {20, 11}}));
    painter.setPen(QPen(QColor(200, 40, 40), 1.2));
    painter.drawPolyline(QPolygonF({{4, 18}, {10, 17}, {14, 14}, {20, 15}}));
}

/// Two ends of a line.
void drawConnection(QPainter& painter) {
    painter.setPen(QPen(Frame, 1.5));
    painter.drawLine(7, 12, 17, 12);
    painter.setBrush(QColor(30, 140, 60));
    painter.drawEllipse(QPointF(6, 12), 3, 3);
    painter.drawRect(QRect(15, 9, 6, 6));
}

}  // namespace

QIcon controlIcon(const QString& control) {
    static const std::map<QString, std::function<void(QPainter&)>> drawings = {
        {"OPCViewer", drawOpc},
        {"AlarmViewer", drawAlarms},
        {"TrendViewer", drawTrend},
        {"ConnViewer", drawConnection}};
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap pixmap(QSize(24, 24) * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Frame, 1));
        painter.setBrush(Paper);
        painter.drawRoundedRect(QRectF(1.5, 3.5, 21, 17), 2, 2);
        if (const auto drawing = drawings.find(control); drawing != drawings.end())
            drawing->second(painter);
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace velt::designer
