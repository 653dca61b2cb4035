// SPDX-License-Identifier: MIT
#include "trendviewer/valueaxis.h"

#include "trendviewer/readout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>
#include <set>

namespace velt {
namespace {

constexpr double Full = 100.0;        // percent
constexpr int WantedTicks = 6;        // about
constexpr int PercentTicks = 5;       // spaces between the labels of a normalised axis
constexpr double HeightsBeside = 20;  // how far a line may leave the axis
constexpr double Finest = 1e-12;      // of a value: what a double can still tell apart, with room

struct Bounds {
    double low;
    double high;
};

/// Wide enough to be divided: a constant stands in the middle.
Bounds opened(Bounds bounds) {
    const double size = std::max(std::abs(bounds.low), std::abs(bounds.high));
    if (bounds.high - bounds.low > std::max(size * Finest, 1e-290)) return bounds;
    const double margin = size > 1e-280 ? size * 0.1 : 1.0;
    return {bounds.low - margin, bounds.high + margin};
}

/// The next of 1, 2, 5, 10, ... times a power of ten.
double roundStep(double step) {
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (step <= factor * power * (1 + Finest)) return factor * power;
    return 10.0 * power;
}

/// Texts of the multiples of a step, all with the same decimals. Beyond some digits, as computed
/// values have them.
class TickText {
public:
    TickText(double step, double largest, const Locale& locale)
        : step_(step), decimals_(-std::floor(std::log10(step))), locale_(locale) {
        plain_ = decimals_ <= 9 && largest < 1e9;
    }
    [[nodiscard]] std::string of(double multiple) const {
        const double value = multiple * step_;
        if (!plain_) return computedText(value, locale_);
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.*f", std::max(0, static_cast<int>(decimals_)),
                      multiple == 0 ? 0.0 : value);  // no "-0"
        std::string result(text.data());
        std::ranges::replace(result, '.', locale_.decimalSign);
        return result;
    }

private:
    double step_;
    double decimals_;
    bool plain_;
    const Locale& locale_;
};

bool shows(const ChartContents& contents, const ScaleChoice& choice, std::size_t series) {
    const auto& curve = contents.series[series].curve;
    return choice.visible[series] && curve &&
           (curve->statistics.count > 0 || !curve->points.empty());
}

Bounds boundsOf(const ChartContents& contents, std::size_t series) {
    const ChartCurve& curve = *contents.series[series].curve;
    if (curve.statistics.count > 0) return {curve.statistics.minimum, curve.statistics.maximum};
    // A line that only crosses the view: from the sample before it to the one behind.
    const auto [low, high] =
        std::minmax(curve.points.front().last.value, curve.points.back().first.value);
    return {low, high};
}

void addPercentTicks(ValueAxis& axis, std::optional<Bounds> labelled, const Locale& locale) {
    for (int i = 0; i <= PercentTicks; ++i) {
        const double height = Full * i / PercentTicks;
        const auto value = [&](const Bounds& b) {
            return b.low + (b.high - b.low) * height / Full;
        };
        axis.ticks.push_back({height, labelled ? computedText(value(*labelled), locale)
                                               : computedText(height, locale) + " %"});
    }
}

/// Rounds the bounds outwards and labels the round values between them.
Bounds addRoundTicks(ValueAxis& axis, Bounds bounds, const Locale& locale) {
    const double step = roundStep((bounds.high - bounds.low) / WantedTicks);
    const double first = std::floor(bounds.low / step + Finest);
    const double last = std::ceil(bounds.high / step - Finest);
    const TickText text(step, std::max(std::abs(first), std::abs(last)) * step, locale);
    const auto spaces = static_cast<int>(std::lround(last - first));
    for (int i = 0; i <= spaces; ++i) axis.ticks.push_back({Full * i / spaces, text.of(first + i)});
    return {first * step, last * step};
}

/// The one unit of several series, "" when they differ.
std::string commonUnit(const ChartContents& contents, const ScaleChoice& choice) {
    std::set<std::string> units;
    for (std::size_t i = 0; i < ChartSeriesCount; ++i)
        if (shows(contents, choice, i)) units.insert(contents.series[i].unit);
    return units.size() == 1 ? *units.begin() : "";
}

}  // namespace

ValueAxis valueAxis(const ChartContents& contents, const ScaleChoice& choice,
                    const Locale& locale) {
    ValueAxis axis;
    const auto chosen = static_cast<std::size_t>(choice.series);
    if (choice.series >= 0 && chosen < ChartSeriesCount && shows(contents, choice, chosen)) {
        axis.series = choice.series;
        axis.unit = contents.series[chosen].unit;
    }

    std::optional<Bounds> common;  // around the chosen series, or all that show
    for (std::size_t i = 0; i < ChartSeriesCount; ++i) {
        if (!shows(contents, choice, i)) continue;
        const Bounds own = opened(boundsOf(contents, i));
        if (choice.normalised) axis.scales[i].SetMinMax(own.low, own.high, 0, Full);
        if (axis.series >= 0 && i != chosen) continue;
        const Bounds whole = boundsOf(contents, i);
        common = common
                     ? Bounds{std::min(common->low, whole.low), std::max(common->high, whole.high)}
                     : whole;
    }
    if (!common) return axis;
    if (choice.normalised) {
        addPercentTicks(axis, axis.series >= 0 ? std::optional(opened(*common)) : std::nullopt,
                        locale);
        return axis;
    }
    if (axis.series < 0) axis.unit = commonUnit(contents, choice);
    const Bounds rounded = addRoundTicks(axis, opened(*common), locale);
    for (clsTrasfLineare& scale : axis.scales) scale.SetMinMax(rounded.low, rounded.high, 0, Full);
    return axis;
}

double heightOf(const clsTrasfLineare& scale, double value) {
    const double range = HeightsBeside * (scale.Xmax() - scale.Xmin());
    return scale.fx(std::clamp(value, scale.Xmin() - range, scale.Xmax() + range));
}

}  // namespace velt
