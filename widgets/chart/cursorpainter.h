// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/chart/chartgeometry.h"
#include "widgets/chart/chartview.h"

#include <QPainter>
#include <QStringList>

namespace velt::ui {

/// What a readout says of one pen; nothing for one that is not to be seen.
struct ReadoutLine {
    std::size_t series = 0;
    QString text;
};

/// At a moment: one line for every visible pen with its name, value, unit and the sample's own
/// time; without a sample there, "-".
[[nodiscard]] std::vector<ReadoutLine> cursorReadout(const ChartDrawing& drawing, ChartTime at);

/// Between two markers: for every visible pen the difference of its values.
[[nodiscard]] std::vector<ReadoutLine> markerReadout(const ChartDrawing& drawing, ChartTime from,
                                                     ChartTime to);

/// The same as plain text, for who cannot see the chart.
[[nodiscard]] QString spokenReadout(const ChartDrawing& drawing, const ChartView& view);

/// Draws cursor, markers and what they say over a chart.
void paintCursor(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry,
                 const ChartView& view);

}  // namespace velt::ui
