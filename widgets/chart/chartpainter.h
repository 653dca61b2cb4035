// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/chart/chartdrawing.h"

#include <QPainter>
#include <QRectF>

namespace velt::ui {

/// What a chart says when nothing was found.
inline constexpr const char* NoDataText = "Nessun Dato Disponibile !!";

/// Draws a chart into `area` of any painter: a window's, a picture's or a printer's.
void paintChart(QPainter& painter, const QRectF& area, const ChartDrawing& drawing);

}  // namespace velt::ui
