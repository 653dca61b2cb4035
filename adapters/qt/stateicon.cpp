// SPDX-License-Identifier: MIT
#include "adapters/qt/stateicon.h"

#include <QIconEngine>

#include <algorithm>
#include <utility>

namespace velt::qt {
namespace {

constexpr qreal Side = 16;

class StateIconEngine final : public QIconEngine {
public:
    explicit StateIconEngine(StatePainter paint) : paint_(std::move(paint)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal side = std::min(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled) painter->setOpacity(0.5);
        painter->translate(QRectF(rect).center() - QPointF(side / 2, side / 2));
        painter->scale(side / Side, side / Side);
        if (mode == QIcon::Selected) {
            // Blue on the blue of a selected row would not be seen.
            painter->setPen(Qt::NoPen);
            painter->setBrush(Qt::white);
            painter->drawRoundedRect(QRectF(0, 0, Side, Side), 3, 3);
        }
        paint_(*painter);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        this->paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new StateIconEngine(*this); }

private:
    StatePainter paint_;
};

const QColor Green(0x1b, 0x8a, 0x3a);
const QColor Yellow(0xf2, 0xb6, 0x05);
const QColor Red(0xc6, 0x28, 0x28);
const QColor Dark(0x2b, 0x1d, 0x00);

/// Filled, with an edge that stands out from a light ground and from a dark one.
void shape(QPainter& painter, const QColor& color) {
    painter.setBrush(color);
    painter.setPen(QPen(color.darker(150), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void sign(QPainter& painter, const QColor& color) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void disc(QPainter& painter) {
    shape(painter, Green);
    painter.drawEllipse(QRectF(1.5, 1.5, 13, 13));
    sign(painter, Qt::white);
}

void accepted(QPainter& painter) {
    disc(painter);
    painter.drawPolyline(QPolygonF({{4.8, 8.3}, {7.1, 10.7}, {11.3, 5.6}}));
}

void acceptedButFailed(QPainter& painter) {
    disc(painter);
    painter.drawLine(QPointF(5.5, 5.5), QPointF(10.5, 10.5));
    painter.drawLine(QPointF(10.5, 5.5), QPointF(5.5, 10.5));
}

void diamond(QPainter& painter) {
    shape(painter, Yellow);
    painter.drawPolygon(QPolygonF({{8, 1}, {15, 8}, {8, 15}, {1, 8}}));
}

void square(QPainter& painter) {
    shape(painter, Red);
    painter.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 1.5, 1.5);
    sign(painter, Qt::white);
    painter.drawLine(QPointF(4.5, 8), QPointF(11.5, 8));
}

void warning(QPainter& painter) {
    shape(painter, Yellow);
    painter.drawPolygon(QPolygonF({{8, 1.2}, {15.2, 14.6}, {0.8, 14.6}}));
    sign(painter, Dark);
    painter.drawLine(QPointF(8, 6), QPointF(8, 9.4));
    painter.drawPoint(QPointF(8, 12.4));
}

}  // namespace

QIcon makeStateIcon(StatePainter paint) { return QIcon(new StateIconEngine(std::move(paint))); }

QIcon stateIcon(const QString& name) {
    const std::pair<const char*, void (*)(QPainter&)> pictures[] = {
        {"verde", accepted},
        {"gialla", diamond},
        {"rossa", square},
        {"errore_verde", acceptedButFailed},
        {"errore_gialla", warning}};
    for (const auto& [known, paint] : pictures)
        if (name == QLatin1String(known)) return makeStateIcon(paint);
    return {};
}

}  // namespace velt::qt
