// SPDX-License-Identifier: MIT
#include "widgets/chart/axespainter.h"

#include "adapters/qt/text.h"

#include <algorithm>
#include <cmath>

namespace velt::ui {
namespace {

constexpr double Gap = 4;
constexpr double BetweenLabels = 8;

void paintValueAxis(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry) {
    const QRectF& plot = geometry.plot();
    const auto& ticks = geometry.axis().ticks;
    const double spaces = std::max<double>(static_cast<double>(ticks.size()) - 1, 1);
    const int step = labelStep(plot.height() / spaces, geometry.lineHeight());
    int index = 0;
    for (const ValueTick& tick : ticks) {
        const double y = geometry.yOfHeight(tick.height);
        painter.setPen(drawing.colors.grid);
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        if (index++ % step != 0) continue;
        painter.setPen(drawing.colors.text);
        painter.drawText(QRectF(plot.left() - 1000 - Gap, y - geometry.lineHeight() / 2, 1000,
                                geometry.lineHeight()),
                         Qt::AlignRight | Qt::AlignVCenter, qt::toQt(tick.text));
    }
}

/// Whose values the labels are, and their unit.
QString axisCaption(const ValueAxis& axis) {
    QString text = axis.series < 0 ? QString() : QStringLiteral("Penna %1").arg(axis.series + 1);
    if (axis.unit.empty()) return text;
    if (!text.isEmpty()) text += QLatin1Char(' ');
    return text + QLatin1Char('[') + qt::toQt(axis.unit) + QLatin1Char(']');
}

/// The day stands under the first label and wherever it changes.
void paintTimeAxis(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry) {
    const QRectF& plot = geometry.plot();
    const QFontMetricsF metrics(drawing.font);
    double width = 0;
    for (const TimeTick& tick : geometry.timeTicks())
        width = std::max({width, metrics.horizontalAdvance(qt::toQt(tick.clock)),
                          metrics.horizontalAdvance(qt::toQt(tick.day))});
    const double divisions = std::max<double>(double(geometry.timeTicks().size()) - 1, 1);
    const int step = labelStep(plot.width() / divisions, width + BetweenLabels);

    std::string day;
    int index = 0;
    for (const TimeTick& tick : geometry.timeTicks()) {
        const double x = plot.left() + plot.width() * tick.place;
        painter.setPen(drawing.colors.grid);
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
        if (index++ % step != 0) continue;
        painter.setPen(drawing.colors.text);
        painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + Gap));
        QRectF place(x - width, plot.bottom() + Gap, 2 * width, geometry.lineHeight());
        painter.drawText(place, Qt::AlignCenter, qt::toQt(tick.clock));
        if (tick.day == day) continue;
        day = tick.day;
        place.translate(0, geometry.lineHeight());
        painter.drawText(place, Qt::AlignCenter, qt::toQt(tick.day));
    }
}

}  // namespace

int labelStep(double spacing, double size) {
    if (spacing >= size) return 1;
    return spacing > 0 ? static_cast<int>(std::ceil(size / spacing)) : 1'000'000;
}

void paintAxes(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(drawing.font);
    paintValueAxis(painter, drawing, geometry);
    paintTimeAxis(painter, drawing, geometry);

    const QRectF& plot = geometry.plot();
    painter.setPen(drawing.colors.text);
    const QRectF above(plot.left(), plot.top() - geometry.lineHeight() - Gap, plot.width(),
                       geometry.lineHeight());
    painter.drawText(above, Qt::AlignLeft | Qt::AlignVCenter, axisCaption(geometry.axis()));
    QString title = qt::toQt(drawing.contents->title);
    if (drawing.isPart) title += QStringLiteral(" – parte dell'intervallo");
    painter.drawText(above, Qt::AlignRight | Qt::AlignVCenter, title);
    painter.drawLine(plot.topLeft(), plot.bottomLeft());
    painter.drawLine(plot.bottomLeft(), plot.bottomRight());
    painter.restore();
}

}  // namespace velt::ui
