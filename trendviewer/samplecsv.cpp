// SPDX-License-Identifier: MIT
#include "trendviewer/samplecsv.h"

#include "platform/date.h"
#include "platform/locale.h"
#include "trendviewer/timeaxis.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace velt {
namespace {

constexpr std::size_t PieceSize = 1 << 16;  // bytes

/// Dates as spreadsheets of the country read them, whatever the operator's locale.
Locale fileLocale() {
    Locale locale = Locale::italian();
    locale.timeSeparator = ':';
    return locale;
}

std::string quoted(const std::string& text) {
    if (text.find_first_of(";\"\r\n") == std::string::npos) return text;
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"') result += c;
        result += c;
    }
    return result + '"';
}

template <typename Number>
void appendDigits(std::string& text, Number value) {
    char digits[32];
    const auto written = std::to_chars(std::begin(digits), std::end(digits), value);
    std::replace(std::begin(digits), written.ptr, '.', ',');
    text.append(digits, written.ptr);
}

void appendValue(std::string& text, double value, SampleKind kind) {
    if (!std::isfinite(value)) return;
    if (kind == SampleKind::Single)
        appendDigits(text, static_cast<float>(value));
    else
        appendDigits(text, value);
}

}  // namespace

void writeSampleCsv(const ChartContents& view, const std::array<bool, ChartSeriesCount>& wanted,
                    const std::function<bool(std::string_view)>& write) {
    const Locale locale = fileLocale();
    std::string piece = "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n";
    for (std::size_t k = 0; k < ChartSeriesCount; ++k) {
        const ChartSeries& series = view.series[k];
        if (!wanted[k] || !series.samples) continue;
        const ChartSamples& samples = *series.samples;
        const std::string before = quoted(series.name) + ';';
        const std::string behind = ';' + quoted(series.unit) + "\r\n";
        const auto first = std::ranges::lower_bound(samples.times, view.start);
        for (auto time = first; time != samples.times.end() && *time <= view.end; ++time) {
            piece += before;
            piece += timeText(*time, locale);
            piece += ';';
            const auto i = static_cast<std::size_t>(time - samples.times.begin());
            appendValue(piece, samples.values[i], samples.kind);
            piece += behind;
            if (piece.size() < PieceSize) continue;
            if (!write(piece)) return;
            piece.clear();
        }
    }
    write(piece);
}

}  // namespace velt
