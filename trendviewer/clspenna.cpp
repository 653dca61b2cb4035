// SPDX-License-Identifier: MIT
#include "trendviewer/clspenna.h"

#include "platform/date.h"

#include <limits>

namespace velt {
namespace {

constexpr std::size_t FewestSamples = 11;
constexpr int Repeats = 5;

}  // namespace

std::int16_t CalcolaPeriodoCamp(std::span<const ChartTime> times) {
    if (times.size() < FewestSamples) return 0;
    ChartTime previous = times.back();
    std::int64_t lastSpacing = 0;
    int repeats = 0;
    for (auto time = times.rbegin(); time != times.rend(); ++time) {
        // The newest sample is compared with itself first: that repeats the 0 of the start once.
        const std::int64_t spacing =
            secondsBetween(Date::fromMilliseconds(*time), Date::fromMilliseconds(previous));
        if (spacing == lastSpacing) {
            if (++repeats == Repeats) {
                const bool fits = spacing <= std::numeric_limits<std::int16_t>::max();
                return fits ? static_cast<std::int16_t>(spacing) : std::int16_t{0};
            }
        } else {
            repeats = 0;
            lastSpacing = spacing;
        }
        previous = *time;
    }
    return 0;
}

}  // namespace velt
