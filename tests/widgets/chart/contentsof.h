// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "tests/trendviewer/samplesof.h"
#include "trendviewer/vista.h"
#include "widgets/chart/chartdrawing.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace velt {

/// 2006-03-14 00:00.
inline ChartTime testStart() { return Date::fromFields({2006, 3, 14, 0, 0, 0, 0}).milliseconds(); }

inline constexpr ChartTime Minute = 60'000;

/// Samples at the given seconds after testStart().
inline std::shared_ptr<const ChartSamples> trend(
    const std::vector<std::pair<double, double>>& secondsAndValues,
    SampleKind kind = SampleKind::Number) {
    return samplesOf(secondsAndValues, kind, testStart());
}

/// A window of `seconds` from testStart() with the given pens.
inline std::shared_ptr<const ChartContents> contentsOf(
    double seconds, const std::vector<std::shared_ptr<const ChartSamples>>& pens) {
    ChartContents whole;
    whole.title = "RTU01";
    whole.period = 60;
    whole.start = testStart();
    whole.end = whole.start + static_cast<ChartTime>(seconds * 1000);
    for (std::size_t k = 0; k < pens.size(); ++k) {
        whole.series[k].name = "Trend" + std::to_string(k + 1);
        whole.series[k].unit = "m";
        whole.series[k].samples = pens[k];
    }
    return vista(whole, whole.start, whole.end);
}

inline ui::ChartDrawing drawingOf(std::shared_ptr<const ChartContents> contents) {
    ui::ChartDrawing drawing;
    drawing.contents = std::move(contents);
    return drawing;
}

}  // namespace velt
