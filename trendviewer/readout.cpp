// SPDX-License-Identifier: MIT
#include "trendviewer/readout.h"

#include "platform/conversions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace velt {
namespace {

constexpr int Digits = 7;
constexpr double WholeDigits = 1e7;  // what has more whole digits has no room for decimals

ChartTime distance(const ChartSamples& samples, std::size_t i, ChartTime at) {
    return std::abs(samples.times[i] - at);
}

/// In a run that begins before `at` and ends behind it.
std::size_t sampleInRun(const ChartSamples& samples, const SampleRun& run, ChartTime at) {
    const auto times = samples.times.begin();
    const auto behind = std::upper_bound(times + static_cast<std::ptrdiff_t>(run.begin),
                                         times + static_cast<std::ptrdiff_t>(run.end), at) -
                        times;
    const auto last = static_cast<std::size_t>(behind) - 1;  // up to `at`
    if (samples.steps() || last + 1 == run.end) return last;
    return distance(samples, last + 1, at) < distance(samples, last, at) ? last + 1 : last;
}

}  // namespace

std::optional<ChartSample> sampleAt(const ChartSamples& samples, ChartTime at,
                                    ChartTime tolerance) {
    const auto& runs = samples.runs;
    const auto sample = [&](std::size_t i) -> std::optional<ChartSample> {
        return ChartSample{samples.times[i], samples.values[i]};
    };
    // The first run that ends at the moment or later.
    const auto run = std::ranges::lower_bound(
        runs, at, {}, [&](const SampleRun& r) { return samples.times[r.end - 1]; });
    if (run != runs.end() && samples.times[run->begin] <= at)
        return sample(sampleInRun(samples, *run, at));

    std::optional<std::size_t> nearest;
    const auto consider = [&](std::size_t i) {
        if (distance(samples, i, at) > tolerance) return;
        if (!nearest || distance(samples, i, at) < distance(samples, *nearest, at)) nearest = i;
    };
    if (run != runs.begin()) consider(std::prev(run)->end - 1);
    if (run != runs.end()) consider(run->begin);
    return nearest ? sample(*nearest) : std::nullopt;
}

std::optional<ChartSample> sampleAt(const ChartContents& view, std::size_t series, ChartTime at) {
    const auto& samples = view.series[series].samples;
    if (!samples) return std::nullopt;
    const auto tolerance = static_cast<ChartTime>(std::ceil(view.secondsPerPoint * 500.0));
    return sampleAt(*samples, at, tolerance);
}

std::string valueText(double value, SampleKind kind, const Locale& locale) {
    switch (kind) {
        case SampleKind::Single: return conversions::text(static_cast<float>(value), locale);
        case SampleKind::Boolean: return value != 0 ? locale.trueText : locale.falseText;
        default:
            return std::abs(value) < WholeDigits ? computedText(value, locale)
                                                 : conversions::text(std::nearbyint(value), locale);
    }
}

std::string computedText(double value, const Locale& locale) {
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value,
                                   std::chars_format::scientific, Digits - 1)
                         .ptr;
    double rounded = value;
    std::from_chars(std::begin(digits), end, rounded);
    return conversions::text(rounded, locale);
}

}  // namespace velt
