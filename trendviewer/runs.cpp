// SPDX-License-Identifier: MIT
#include "trendviewer/runs.h"

#include <algorithm>
#include <array>

namespace velt {
namespace {

constexpr ChartTime GapFactor = 3;
constexpr std::size_t Neighbours = 5;   // spacings that say what is usual on one side
constexpr std::size_t LookAround = 64;  // samples at most; equal times have no spacing

/// The middle one of a few spacings.
class Usual {
public:
    [[nodiscard]] bool complete() const { return count_ == Neighbours; }
    void add(ChartTime spacing) {
        if (spacing > 0) spacings_[count_++] = spacing;
    }
    /// 0 when there are none.
    [[nodiscard]] ChartTime spacing() {
        if (count_ == 0) return 0;
        const auto middle = spacings_.begin() + static_cast<std::ptrdiff_t>(count_ / 2);
        std::nth_element(spacings_.begin(), middle,
                         spacings_.begin() + static_cast<std::ptrdiff_t>(count_));
        return *middle;
    }

private:
    std::array<ChartTime, Neighbours> spacings_{};
    std::size_t count_ = 0;
};

/// Between sample i - 1 and sample i.
ChartTime spacingAt(std::span<const ChartTime> times, std::size_t i) {
    return times[i] - times[i - 1];
}

bool isGap(std::span<const ChartTime> times, std::size_t i) {
    Usual before;
    for (std::size_t k = 1; k < i && k <= LookAround && !before.complete(); ++k)
        before.add(spacingAt(times, i - k));
    Usual after;
    for (std::size_t k = 1; i + k < times.size() && k <= LookAround && !after.complete(); ++k)
        after.add(spacingAt(times, i + k));
    const ChartTime usual = std::max(before.spacing(), after.spacing());
    return usual > 0 && spacingAt(times, i) > GapFactor * usual;
}

/// Cheaper, and never false for a gap: three of the five spacings before would have to be small.
bool mayBeGap(std::span<const ChartTime> times, std::size_t i) {
    if (i < 4) return true;
    const ChartTime smallest =
        std::min({spacingAt(times, i - 1), spacingAt(times, i - 2), spacingAt(times, i - 3)});
    return spacingAt(times, i) > GapFactor * smallest;
}

}  // namespace

std::vector<SampleRun> findRuns(std::span<const ChartTime> times, std::span<const double> values) {
    std::vector<SampleRun> runs;
    bool open = false;
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (!isDrawable(values[i])) {
            open = false;
            continue;
        }
        if (!open || (mayBeGap(times, i) && isGap(times, i))) runs.push_back({i, i});
        runs.back().end = i + 1;
        open = true;
    }
    return runs;
}

}  // namespace velt
