// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/chart/chartgeometry.h"

#include <QPainter>
#include <QPolygonF>

#include <vector>

namespace velt::ui {

/// The connected parts of a curve: through the first, the lowest, the highest and the last sample
/// of every point, each at its own time; as stairs when the trend is drawn in steps.
[[nodiscard]] std::vector<QPolygonF> polylines(const ChartSeries& series, std::size_t index,
                                               const ChartGeometry& geometry);

/// Draws the visible curves, each with the number of its pen behind its newest sample.
void paintCurves(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry);

/// The number of a pen in its colour, centred at a place.
void paintPenNumber(QPainter& painter, const ChartDrawing& drawing, std::size_t series,
                    const QPointF& at);

}  // namespace velt::ui
