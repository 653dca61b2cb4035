// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"

#include <memory>

namespace velt {

/// `whole` as seen from `from` to `to`: with the curves, the statistics and the point count of
/// that stretch of time. The samples are shared. Pure: may run on any thread.
[[nodiscard]] VELT_API std::shared_ptr<const ChartContents> vista(const ChartContents& whole,
                                                                  ChartTime from, ChartTime to);

/// Whether any series has a sample in view.
[[nodiscard]] VELT_API bool hasData(const ChartContents& contents);

/// The moment that `point` stands for, within the window.
[[nodiscard]] VELT_API ChartTime timeOfPoint(const ChartContents& contents, int point);
/// The point nearest to a moment.
[[nodiscard]] VELT_API int pointAt(const ChartContents& contents, ChartTime time);

}  // namespace velt
