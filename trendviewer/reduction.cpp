// SPDX-License-Identifier: MIT
#include "trendviewer/reduction.h"

#include <algorithm>
#include <span>

namespace velt {
namespace {

/// The parts of the runs that lie in view.
std::vector<SampleRun> runsInView(const ChartSamples& samples, ChartTime from, ChartTime to) {
    const auto& times = samples.times;
    const auto first =
        static_cast<std::size_t>(std::ranges::lower_bound(times, from) - times.begin());
    const auto last = static_cast<std::size_t>(std::ranges::upper_bound(times, to) - times.begin());
    std::vector<SampleRun> parts;
    if (first >= last) return parts;
    auto run = std::ranges::upper_bound(samples.runs, first, {}, &SampleRun::end);
    for (; run != samples.runs.end() && run->begin < last; ++run)
        parts.push_back({std::max(run->begin, first), std::min(run->end, last)});
    return parts;
}

ChartPoint pointOf(const ChartSamples& samples, std::size_t begin, std::size_t end) {
    const double* const values = samples.values.data();
    std::size_t minimum = begin;
    std::size_t maximum = begin;
    for (std::size_t i = begin + 1; i < end; ++i) {
        if (values[i] < values[minimum]) minimum = i;
        if (values[i] > values[maximum]) maximum = i;
    }
    const auto sample = [&](std::size_t i) -> ChartSample { return {samples.times[i], values[i]}; };
    return {sample(begin), sample(minimum), sample(maximum), sample(end - 1), false};
}

/// The break between the two, shorter than a point, is not drawn.
void merge(ChartPoint& point, const ChartPoint& next) {
    if (next.minimum.value < point.minimum.value) point.minimum = next.minimum;
    if (next.maximum.value > point.maximum.value) point.maximum = next.maximum;
    point.last = next.last;
}

/// Equal stretches of a view.
class Stretches {
public:
    Stretches(ChartTime from, ChartTime to, int count)
        : from_(from), length_(std::max<ChartTime>(to - from, 1)), count_(count) {}
    [[nodiscard]] ChartTime indexOf(ChartTime time) const {
        return std::min<ChartTime>((time - from_) * count_ / length_, count_ - 1);
    }
    /// First moment that is no longer in stretch `index`.
    [[nodiscard]] ChartTime endOf(ChartTime index) const {
        if (index + 1 >= count_) return from_ + length_ + 1;
        return from_ + ((index + 1) * length_ + count_ - 1) / count_;
    }

private:
    ChartTime from_;
    ChartTime length_;
    ChartTime count_;
};

std::vector<ChartPoint> pointPerSample(const ChartSamples& samples,
                                       std::span<const SampleRun> runs) {
    std::vector<ChartPoint> points;
    for (const SampleRun& run : runs) {
        for (std::size_t i = run.begin; i < run.end; ++i) {
            points.push_back(pointOf(samples, i, i + 1));
            points.back().joined = i > run.begin;
        }
    }
    return points;
}

/// The line into the view and out of it, which may cross it without a sample inside.
void addNeighbours(const ChartSamples& samples, ChartTime from, ChartTime to,
                   std::vector<ChartPoint>& points) {
    const auto& times = samples.times;
    const auto first =
        static_cast<std::size_t>(std::ranges::lower_bound(times, from) - times.begin());
    const auto behind =
        static_cast<std::size_t>(std::ranges::upper_bound(times, to) - times.begin());
    /// Whether sample i - 1 and sample i belong together.
    const auto joined = [&](std::size_t i) {
        const auto run = std::ranges::upper_bound(samples.runs, i, {}, &SampleRun::end);
        return run != samples.runs.end() && run->begin < i;
    };
    if (from > to) return;
    const bool hasBefore = first > 0 && joined(first);
    const bool hasAfter = behind > 0 && joined(behind);
    if (hasBefore) {
        if (!points.empty()) points.front().joined = true;
        points.insert(points.begin(), pointOf(samples, first - 1, first));
    }
    if (hasAfter) {
        points.push_back(pointOf(samples, behind, behind + 1));
        points.back().joined = true;
    }
}

std::vector<ChartPoint> pointPerStretch(const ChartSamples& samples,
                                        std::span<const SampleRun> runs,
                                        const Stretches& stretches) {
    std::vector<ChartPoint> points;
    ChartTime last = -1;  // stretch of the newest point
    const auto times = samples.times.begin();
    for (const SampleRun& run : runs) {
        std::size_t i = run.begin;
        while (i < run.end) {
            const ChartTime stretch = stretches.indexOf(samples.times[i]);
            const auto end = static_cast<std::size_t>(
                std::lower_bound(times + static_cast<std::ptrdiff_t>(i),
                                 times + static_cast<std::ptrdiff_t>(run.end),
                                 stretches.endOf(stretch)) -
                times);
            ChartPoint point = pointOf(samples, i, end);
            point.joined = i > run.begin;
            if (stretch == last)
                merge(points.back(), point);
            else
                points.push_back(point);
            last = stretch;
            i = end;
        }
    }
    return points;
}

/// The mean of the values, each weighted by the time to the next one of its run. Every term is
/// scaled before it is added: the sum never leaves the range of the values.
double meanByTime(const ChartSamples& samples, std::span<const SampleRun> runs, std::size_t count) {
    const auto& times = samples.times;
    const auto& values = samples.values;
    ChartTime total = 0;
    for (const SampleRun& run : runs) total += times[run.end - 1] - times[run.begin];
    double mean = 0;
    if (total == 0) {  // samples that last no time count alike
        for (const SampleRun& run : runs)
            for (std::size_t i = run.begin; i < run.end; ++i)
                mean += values[i] / static_cast<double>(count);
        return mean;
    }
    const double scale = 1.0 / static_cast<double>(total);
    const double ownPart = samples.steps() ? 1.0 : 0.5;  // a line runs on to the next value
    for (const SampleRun& run : runs) {
        for (std::size_t i = run.begin + 1; i < run.end; ++i) {
            const double weight = static_cast<double>(times[i] - times[i - 1]) * scale;
            mean += (ownPart * values[i - 1] + (1.0 - ownPart) * values[i]) * weight;
        }
    }
    return mean;
}

}  // namespace

ChartCurve reduce(const ChartSamples& samples, ChartTime from, ChartTime to, int maxPoints) {
    const std::vector<SampleRun> runs = runsInView(samples, from, to);
    std::size_t count = 0;
    for (const SampleRun& run : runs) count += run.end - run.begin;

    ChartCurve curve;
    if (count > 0) {
        curve.points = count <= static_cast<std::size_t>(maxPoints)
                           ? pointPerSample(samples, runs)
                           : pointPerStretch(samples, runs, Stretches(from, to, maxPoints));
        const auto low = std::ranges::min_element(
            curve.points, {}, [](const ChartPoint& point) { return point.minimum.value; });
        const auto high = std::ranges::max_element(
            curve.points, {}, [](const ChartPoint& point) { return point.maximum.value; });
        curve.statistics = {.count = count,
                            .minimum = low->minimum.value,
                            .maximum = high->maximum.value,
                            .mean = meanByTime(samples, runs, count),
                            .last = curve.points.back().last.value};
    }
    addNeighbours(samples, from, to, curve.points);
    return curve;
}

}  // namespace velt
