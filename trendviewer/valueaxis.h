// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/locale.h"
#include "trendviewer/clstrasflineare.h"

#include <array>
#include <string>
#include <vector>

namespace velt {

/// What a value axis may be asked for.
struct ScaleChoice {
    std::array<bool, ChartSeriesCount> visible = {true, true, true, true};
    bool normalised = false;
    int series = -1;  ///< whose scale the axis shows; -1 for all together
};

struct ValueTick {
    double height = 0;  ///< percent of the axis, from the bottom
    std::string text;
};

/// The value axis of a chart.
struct ValueAxis {
    /// Of each series: from values to percent of the axis. One without data maps all to 0.
    std::array<clsTrasfLineare, ChartSeriesCount> scales;
    std::vector<ValueTick> ticks;
    std::string unit;  ///< of the labels; "" when they stand for several units
    int series = -1;   ///< whose values the labels are, -1 for none in particular
};

/// Normalised: every series from its own minimum to its own maximum on 0..100 %, labelled with the
/// values of the chosen series, or with percents. Else one scale with rounded bounds around the
/// chosen series, or around all visible ones. A chosen series that is hidden or has no data counts
/// as none.
[[nodiscard]] VELT_API ValueAxis valueAxis(const ChartContents& contents, const ScaleChoice& choice,
                                           const Locale& locale);

/// Height of a value in percent, kept within 20 heights beside the axis.
[[nodiscard]] VELT_API double heightOf(const clsTrasfLineare& scale, double value);

}  // namespace velt
