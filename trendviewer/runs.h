// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"

#include <cmath>
#include <span>
#include <vector>

namespace velt {

/// Whether a value can be drawn. The bound is beyond anything that is measured, and leaves the
/// arithmetic of scales room.
[[nodiscard]] inline bool isDrawable(double value) { return std::abs(value) <= 1e300; }

/// The stretches of drawable samples. One ends where a value cannot be drawn, and where samples are
/// missing: a spacing over three times the usual one on either side. Going by both sides keeps data
/// together that was once sampled more slowly. `times` ascend.
[[nodiscard]] VELT_API std::vector<SampleRun> findRuns(std::span<const ChartTime> times,
                                                       std::span<const double> values);

}  // namespace velt
