// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "widgets/chart/trendchart.h"

#include <QPointer>

namespace velt::ui {

/// The chart widget as the logic sees it.
class QtChart final : public Chart {
public:
    explicit QtChart(TrendChart* chart) : chart_(chart) {}
    void Plot(std::shared_ptr<const ChartContents> contents) override {
        if (chart_) chart_->plot(std::move(contents));
    }
    void SeriesColor(int series, int red, int green, int blue) override {
        if (chart_) chart_->setSeriesColor(series, QColor(red, green, blue));
    }
    void SeriesVisible(int series, bool visible) override {
        if (chart_) chart_->setSeriesVisible(series, visible);
    }
    void Normalised(bool normalised) override {
        if (chart_) chart_->setNormalised(normalised);
    }
    void Scale(int series) override {
        if (chart_) chart_->setScale(series);
    }

private:
    QPointer<TrendChart> chart_;
};

}  // namespace velt::ui
