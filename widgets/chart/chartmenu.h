// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace velt::ui {

class TrendChart;

/// The context menu of a chart, owned by it.
[[nodiscard]] QMenu* makeChartMenu(TrendChart& chart);

/// Puts a picture of the chart with its summary on the clipboard.
void copyPicture(const TrendChart& chart);

}  // namespace velt::ui
