// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// What a trend chart shows, and the chart as the logic sees it.
namespace velt {

/// Civil time in milliseconds since 1899-12-30, as Date::milliseconds() counts.
using ChartTime = std::int64_t;

/// What the values of a trend are.
enum class SampleKind {
    Number,
    Single,   ///< 7 significant digits
    Whole,    ///< whole numbers: drawn as steps
    Boolean,  ///< 0 or 1: drawn as steps
};

/// A stretch of samples that belong together: neither a value nor a time is missing inside.
struct SampleRun {
    std::size_t begin;
    std::size_t end;  ///< one past the last
    friend bool operator==(const SampleRun&, const SampleRun&) = default;
};

/// The samples of a trend in the order of time. Immutable once made, to be read from any thread.
struct ChartSamples {
    std::vector<ChartTime> times;
    std::vector<double> values;  ///< NaN where the file holds null
    std::vector<SampleRun> runs;
    SampleKind kind = SampleKind::Number;

    [[nodiscard]] bool steps() const {
        return kind == SampleKind::Whole || kind == SampleKind::Boolean;
    }
};

struct ChartSample {
    ChartTime time = 0;
    double value = 0;
    friend bool operator==(const ChartSample&, const ChartSample&) = default;
};

/// What is drawn of neighbouring samples: with its minimum and maximum no peak is ever lost.
struct ChartPoint {
    ChartSample first;
    ChartSample minimum;
    ChartSample maximum;
    ChartSample last;
    bool joined = false;  ///< to the point before; false where the line breaks

    friend bool operator==(const ChartPoint&, const ChartPoint&) = default;
};

/// Of what is in view. Without a sample there (`count` 0) the numbers mean nothing.
struct ChartStatistics {
    std::size_t count = 0;
    double minimum = 0;  ///< of the samples and, in steps, of the value at the start of the view
    double maximum = 0;
    double mean = 0;  ///< weighted by the time in view that each value lasted
    double last = 0;
};

/// A trend in view. The line goes on to the next sample on either side of the view.
struct ChartCurve {
    std::vector<ChartPoint> points;
    ChartStatistics statistics;
};

struct ChartSeries {
    std::string name;  ///< "" when no trend is chosen
    std::string description;
    std::string unit;
    std::shared_ptr<const ChartSamples> samples;  ///< null when there are none
    std::shared_ptr<const ChartCurve> curve;      ///< null when there are no samples
};

inline constexpr std::size_t ChartSeriesCount = 4;

/// Everything that one drawing shows.
struct ChartContents {
    std::string title;  ///< the station
    ChartTime start = 0;
    ChartTime end = 0;
    int divisions = 4;  ///< of the time axis
    int period = 1;     ///< sampling period, seconds
    int points = 1;     ///< point i stands for start + i * secondsPerPoint
    double secondsPerPoint = 1;
    std::array<ChartSeries, ChartSeriesCount> series;
};

/// The drawing. Series count from 0.
class VELT_API Chart {
public:
    virtual ~Chart() = default;
    /// Shows `contents` in place of what it has shown, with the visibilities told before.
    virtual void Plot(std::shared_ptr<const ChartContents> contents) = 0;
    /// Channels 0..255. Shows at once.
    virtual void SeriesColor(int series, int red, int green, int blue) = 0;
    /// Shows with the next Plot.
    virtual void SeriesVisible(int series, bool visible) = 0;
    /// Each series over the whole height, or all on one axis. Shows at once.
    virtual void Normalised(bool normalised) = 0;
    /// The series whose scale the value axis shows, -1 for that of all together. Shows at once.
    virtual void Scale(int series) = 0;
};

}  // namespace velt
