// SPDX-License-Identifier: MIT
#include "trendviewer/samples.h"

#include "platform/conversions.h"
#include "platform/runtimeerror.h"
#include "trendviewer/runs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace velt {
namespace {

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

double asNumber(const Variant& value, const Locale& locale) {
    return std::visit(
        [&](const auto& held) -> double {
            using T = std::decay_t<decltype(held)>;
            double number = NoNumber;
            if constexpr (std::is_same_v<T, bool>)
                number = held ? -1.0 : 0.0;
            else if constexpr (std::is_same_v<T, Date>)
                number = held.serial();
            else if constexpr (std::is_same_v<T, std::string>)
                // A text that is no number is a missing value.
                ignoreErrors([&] { number = conversions::toDouble(held, locale); });
            else if constexpr (std::is_arithmetic_v<T>)
                number = static_cast<double>(held);
            return number;
        },
        value.storage());
}

/// A column as numbers; only one that does not offer them as a whole is read value by value.
std::vector<double> numbers(const RowSet& rows, std::size_t column, const Locale& locale) {
    const std::span<const double> whole = rows.doubles(column);
    if (!whole.empty()) return {whole.begin(), whole.end()};
    std::vector<double> read(rows.rowCount());
    for (std::size_t row = 0; row < read.size(); ++row)
        read[row] = asNumber(rows.value(row, column), locale);
    return read;
}

/// What the first value that there is says.
SampleKind kindOf(const RowSet& rows, std::size_t column, const std::vector<double>& values) {
    const auto first = std::ranges::find_if(values, [](double v) { return !std::isnan(v); });
    if (first == values.end()) return SampleKind::Number;
    switch (rows.value(static_cast<std::size_t>(first - values.begin()), column).typeCode()) {
        case vartype::Bool: return SampleKind::Boolean;
        case vartype::UI1:
        case vartype::I2:
        case vartype::I4: return SampleKind::Whole;
        case vartype::R4: return SampleKind::Single;
        default: return SampleKind::Number;
    }
}

/// True is -1 in the file, and 1 in a drawing: above False, and its mean is the part of the time.
void makePositive(std::vector<double>& booleans) {
    for (double& value : booleans) value = std::abs(value);
}

/// Takes the times over and drops the rows that have none.
void takeTimes(const std::vector<double>& dates, ChartSamples& samples) {
    samples.times.reserve(dates.size());
    std::size_t kept = 0;
    for (std::size_t row = 0; row < dates.size(); ++row) {
        const Date date(dates[row]);
        if (!date.isValid()) continue;
        samples.times.push_back(date.milliseconds());
        samples.values[kept++] = samples.values[row];
    }
    samples.values.resize(kept);
}

void sortByTime(ChartSamples& samples) {
    if (std::ranges::is_sorted(samples.times)) return;
    std::vector<std::size_t> order(samples.times.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return samples.times[i]; });
    const ChartSamples unsorted = samples;
    for (std::size_t i = 0; i < order.size(); ++i) {
        samples.times[i] = unsorted.times[order[i]];
        samples.values[i] = unsorted.values[order[i]];
    }
}

}  // namespace

ChartSamples leggiCampioni(const RowSet& rows, const Locale& locale) {
    ChartSamples samples;
    if (rows.rowCount() == 0) return samples;
    if (rows.columnCount() < 2) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    samples.values = numbers(rows, 1, locale);
    samples.kind = kindOf(rows, 1, samples.values);
    if (samples.kind == SampleKind::Boolean) makePositive(samples.values);
    takeTimes(numbers(rows, 0, locale), samples);
    sortByTime(samples);
    samples.runs = findRuns(samples.times, samples.values);
    return samples;
}

}  // namespace velt
