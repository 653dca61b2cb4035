// SPDX-License-Identifier: MIT
#include "widgets/chart/chartpainter.h"

#include "trendviewer/vista.h"
#include "widgets/chart/axespainter.h"
#include "widgets/chart/curvepainter.h"

namespace velt::ui {
namespace {

constexpr int NoDataPixels = 18;

}  // namespace

void paintChart(QPainter& painter, const QRectF& area, const ChartDrawing& drawing) {
    painter.fillRect(area, drawing.colors.background);
    if (!drawing.contents) return;
    const ChartGeometry geometry(drawing, area);
    paintAxes(painter, drawing, geometry);
    if (hasData(*drawing.contents)) {
        paintCurves(painter, drawing, geometry);
        return;
    }
    painter.setFont(chartFont(drawing.font, NoDataPixels));
    painter.setPen(drawing.colors.text);
    painter.drawText(geometry.plot(), Qt::AlignCenter | Qt::TextWordWrap,
                     QLatin1String(NoDataText));
}

}  // namespace velt::ui
