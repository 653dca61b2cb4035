// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/chart/chartgeometry.h"

#include <QPainter>

namespace velt::ui {

/// Draws the grid, both axes and their labels. Labels that do not fit are left out at regular
/// distances; every division keeps its line.
void paintAxes(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry);

/// How many labels make way for one: 1 when all fit. `spacing` and `size` in the same unit.
[[nodiscard]] int labelStep(double spacing, double size);

}  // namespace velt::ui
