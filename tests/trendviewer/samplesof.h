// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "trendviewer/runs.h"

#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace velt {

inline constexpr double Missing = std::numeric_limits<double>::quiet_NaN();

/// Samples at the given seconds after `start`.
inline std::shared_ptr<const ChartSamples> samplesOf(
    const std::vector<std::pair<double, double>>& secondsAndValues,
    SampleKind kind = SampleKind::Number, ChartTime start = 0) {
    auto samples = std::make_shared<ChartSamples>();
    for (const auto& [seconds, value] : secondsAndValues) {
        samples->times.push_back(start + static_cast<ChartTime>(seconds * 1000));
        samples->values.push_back(value);
    }
    samples->kind = kind;
    samples->runs = findRuns(samples->times, samples->values);
    return samples;
}

}  // namespace velt
