// SPDX-License-Identifier: MIT
#pragma once

#include "trendviewer/timeaxis.h"
#include "widgets/chart/chartdrawing.h"

#include <QRectF>

#include <vector>

namespace velt::ui {

/// Where the parts of a drawing stand within an area, and what stands where.
class ChartGeometry {
public:
    /// Of a drawing with contents.
    ChartGeometry(const ChartDrawing& drawing, const QRectF& area);

    /// What the axes enclose.
    [[nodiscard]] const QRectF& plot() const { return plot_; }
    [[nodiscard]] const ValueAxis& axis() const { return axis_; }
    [[nodiscard]] const std::vector<TimeTick>& timeTicks() const { return timeTicks_; }
    [[nodiscard]] double lineHeight() const { return lineHeight_; }

    [[nodiscard]] double xOf(ChartTime time) const;
    /// Within the window.
    [[nodiscard]] ChartTime timeAt(double x) const;
    [[nodiscard]] double yOf(std::size_t series, double value) const;
    /// Of a height in percent of the value axis.
    [[nodiscard]] double yOfHeight(double percent) const;

private:
    ChartTime start_;
    ChartTime end_;
    double lineHeight_;
    ValueAxis axis_;
    std::vector<TimeTick> timeTicks_;
    QRectF plot_;
};

}  // namespace velt::ui
