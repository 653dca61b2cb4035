// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/chart/chartdrawing.h"

#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QRectF>

namespace velt::ui {

/// Draws a chart with its summary under it, as it goes to a picture or to paper.
void paintSheet(QPainter& painter, const QRectF& area, const ChartDrawing& drawing);

/// A sheet as a picture of `size` logical pixels, drawn `scale` times as fine.
[[nodiscard]] QImage sheetImage(const ChartDrawing& drawing, const QSize& size, double scale);

/// Draws a sheet on one page, black on white whatever the desktop looks like. False when the
/// device cannot be drawn on.
[[nodiscard]] bool printSheet(QPagedPaintDevice& device, ChartDrawing drawing);

}  // namespace velt::ui
