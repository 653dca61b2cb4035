// SPDX-License-Identifier: MIT
#include "trendviewer/reduction.h"

#include <algorithm>
#include <span>

namespace velt {
namespace {

/// The parts of the runs that lie among the samples from `first` to before `behind`.
std::vector<SampleRun> runsWithin(const ChartSamples& samples, std::size_t first,
                                  std::size_t behind) {
    std::vector<SampleRun> parts;
    auto run = std::ranges::upper_bound(samples.runs, first, {}, &SampleRun::end);
    for (; run != samples.runs.end() && run->begin < behind; ++run)
        parts.push_back({std::max(run->begin, first), std::min(run->end, behind)});
    return parts;
}

/// Whether sample i - 1 and sample i belong together.
bool joined(const ChartSamples& samples, std::size_t i) {
    const auto run = std::ranges::upper_bound(samples.runs, i, {}, &SampleRun::end);
    return run != samples.runs.end() && run->begin < i;
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

/// What stood between sample i - 1 and sample i, from `start` to `end`, on the average.
double valueBetween(const ChartSamples& samples, std::size_t i, ChartTime start, ChartTime end) {
    if (samples.steps()) return samples.values[i - 1];
    const ChartTime begin = samples.times[i - 1];
    const double part = static_cast<double>(start - begin + end - begin) /
                        (2.0 * static_cast<double>(samples.times[i] - begin));
    return samples.values[i - 1] * (1 - part) + samples.values[i] * part;
}

/// The mean of what the runs draw from `from` to `to`. Every term is scaled before it is added: the
/// sum never leaves the range of the values.
double meanByTime(const ChartSamples& samples, std::span<const SampleRun> runs, ChartTime from,
                  ChartTime to) {
    const auto& times = samples.times;
    ChartTime total = 0;
    for (const SampleRun& run : runs)
        total += std::min(times[run.end - 1], to) - std::max(times[run.begin], from);
    double mean = 0;
    if (total == 0) {  // samples that last no time count alike
        double count = 0;
        for (const SampleRun& run : runs)
            for (std::size_t i = run.begin; i < run.end; ++i)
                if (times[i] >= from && times[i] <= to)
                    mean += (samples.values[i] - mean) / ++count;
        return mean;
    }
    const double scale = 1.0 / static_cast<double>(total);
    for (const SampleRun& run : runs) {
        for (std::size_t i = run.begin + 1; i < run.end; ++i) {
            const ChartTime start = std::max(times[i - 1], from);
            const ChartTime end = std::min(times[i], to);
            if (start >= end) continue;  // equal times
            mean +=
                valueBetween(samples, i, start, end) * (static_cast<double>(end - start) * scale);
        }
    }
    return mean;
}

}  // namespace

ChartCurve reduce(const ChartSamples& samples, ChartTime from, ChartTime to, int maxPoints) {
    if (from > to) return {};
    const auto& times = samples.times;
    const auto first =
        static_cast<std::size_t>(std::ranges::lower_bound(times, from) - times.begin());
    const auto behind =
        static_cast<std::size_t>(std::ranges::upper_bound(times, to) - times.begin());
    std::vector<SampleRun> runs = runsWithin(samples, first, behind);
    std::size_t count = 0;
    for (const SampleRun& run : runs) count += run.end - run.begin;
    const bool comesIn = first > 0 && joined(samples, first);
    const bool goesOut = behind > 0 && joined(samples, behind);

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
                            .last = curve.points.back().last.value};
        if (comesIn) --runs.front().begin;
        if (goesOut) ++runs.back().end;
        curve.statistics.mean = meanByTime(samples, runs, from, to);
        if (comesIn && samples.steps() && times[first] > from) {
            const double entering = samples.values[first - 1];
            curve.statistics.minimum = std::min(curve.statistics.minimum, entering);
            curve.statistics.maximum = std::max(curve.statistics.maximum, entering);
        }
    }
    if (comesIn) {
        if (!curve.points.empty()) curve.points.front().joined = true;
        curve.points.insert(curve.points.begin(), pointOf(samples, first - 1, first));
    }
    if (goesOut) {
        curve.points.push_back(pointOf(samples, behind, behind + 1));
        curve.points.back().joined = true;
    }
    return curve;
}

}  // namespace velt
