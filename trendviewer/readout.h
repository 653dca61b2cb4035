// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/locale.h"

#include <optional>
#include <string>

namespace velt {

/// The sample that stands for the moment `at`: in a line the nearest one, in steps the last one up
/// to it. Nothing where samples are missing, but for the `tolerance` beside the ends of a run.
[[nodiscard]] VELT_API std::optional<ChartSample> sampleAt(const ChartSamples& samples,
                                                           ChartTime at, ChartTime tolerance);

/// sampleAt as the operator is to be told it of a view, with half a point as tolerance. It may lie
/// beside the view: a step may have begun before it.
[[nodiscard]] VELT_API std::optional<ChartSample> sampleAt(const ChartContents& view,
                                                           std::size_t series, ChartTime at);

/// A value as the operator reads it: its whole part, and decimals up to 7 digits in all; a Boolean
/// in his words.
[[nodiscard]] VELT_API std::string valueText(double value, SampleKind kind, const Locale& locale);

/// A computed value (a difference, a mean) in 7 digits.
[[nodiscard]] VELT_API std::string computedText(double value, const Locale& locale);

}  // namespace velt
