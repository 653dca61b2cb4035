// SPDX-License-Identifier: MIT
#include "trendviewer/vista.h"

#include "trendviewer/clsgrafico.h"
#include "trendviewer/reduction.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velt {

std::shared_ptr<const ChartContents> vista(const ChartContents& whole, ChartTime from,
                                           ChartTime to) {
    auto view = std::make_shared<ChartContents>(whole);
    view->start = from;
    view->end = to;
    const auto seconds = static_cast<std::int32_t>(
        std::clamp<ChartTime>((to - from) / 1000, 0, std::numeric_limits<std::int32_t>::max()));
    const BaseTempi base = calcolaBaseTempi(seconds, static_cast<std::int16_t>(whole.period));
    view->points = base.PuntiGrafico;
    view->secondsPerPoint = base.SecondiPerPunto;
    for (ChartSeries& series : view->series) {
        if (!series.samples) continue;
        series.curve =
            std::make_shared<const ChartCurve>(reduce(*series.samples, from, to, MaxPuntiGrafico));
    }
    return view;
}

bool hasData(const ChartContents& contents) {
    return std::ranges::any_of(contents.series, [](const ChartSeries& series) {
        return series.curve && !series.curve->points.empty();
    });
}

ChartTime timeOfPoint(const ChartContents& contents, int point) {
    const ChartTime offset = std::llround(point * contents.secondsPerPoint * 1000.0);
    return std::clamp<ChartTime>(contents.start + offset, contents.start,
                                 std::max(contents.start, contents.end));
}

int pointAt(const ChartContents& contents, ChartTime time) {
    if (contents.secondsPerPoint <= 0) return 0;
    const double point =
        static_cast<double>(time - contents.start) / (contents.secondsPerPoint * 1000.0);
    return static_cast<int>(std::lround(std::clamp(point, 0.0, double(contents.points))));
}

}  // namespace velt
