// SPDX-License-Identifier: MIT
#include "widgets/chart/chartgeometry.h"

#include "adapters/qt/text.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace velt::ui {
namespace {

constexpr double Gap = 4;           // between an axis and its labels
constexpr double Right = 24;        // room for the numbers of the pens
constexpr double LeastLeft = 36;    // so that the plot does not jump with every new scale
constexpr double LeastPlot = 8;     // however small the area is
constexpr double FullHeight = 100;  // percent

}  // namespace

ChartGeometry::ChartGeometry(const ChartDrawing& drawing, const QRectF& area)
    : start_(drawing.contents->start),
      end_(std::max(drawing.contents->end, drawing.contents->start + 1)),
      axis_(valueAxis(*drawing.contents, drawing.choice, drawing.locale)),
      timeTicks_(timeAxis(*drawing.contents, drawing.locale)) {
    const QFontMetricsF metrics(drawing.font);
    lineHeight_ = metrics.height();
    double left = LeastLeft;
    for (const ValueTick& tick : axis_.ticks)
        left = std::max(left, metrics.horizontalAdvance(qt::toQt(tick.text)) + 2 * Gap);
    double right = Right;
    if (!timeTicks_.empty())
        right =
            std::max(right, metrics.horizontalAdvance(qt::toQt(timeTicks_.back().day)) / 2 + Gap);
    plot_ = area.adjusted(left, lineHeight_ + 2 * Gap, -right, -2 * lineHeight_ - 2 * Gap);
    plot_.setWidth(std::max(plot_.width(), LeastPlot));
    plot_.setHeight(std::max(plot_.height(), LeastPlot));
}

double ChartGeometry::xOf(ChartTime time) const {
    return plot_.left() +
           plot_.width() * static_cast<double>(time - start_) / static_cast<double>(end_ - start_);
}

ChartTime ChartGeometry::timeAt(double x) const {
    const double part = std::clamp((x - plot_.left()) / plot_.width(), 0.0, 1.0);
    return start_ + static_cast<ChartTime>(std::llround(part * static_cast<double>(end_ - start_)));
}

double ChartGeometry::yOf(std::size_t series, double value) const {
    return yOfHeight(heightOf(axis_.scales[series], value));
}

double ChartGeometry::yOfHeight(double percent) const {
    return plot_.bottom() - plot_.height() * percent / FullHeight;
}

}  // namespace velt::ui
