// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"

namespace velt {

/// The samples from `from` to `to`, both inclusive, as at most `maxPoints` points: one for each
/// sample while they are no more, else one for each of `maxPoints` equal stretches of time that
/// holds any. One more on either side stands for the neighbour outside, where the line goes on to
/// it; statistics are of what is inside, mean and extremes also of a step that lasts into it.
[[nodiscard]] VELT_API ChartCurve reduce(const ChartSamples& samples, ChartTime from, ChartTime to,
                                         int maxPoints);

}  // namespace velt
