// SPDX-License-Identifier: MIT
#include "trendviewer/timeaxis.h"

#include "platform/conversions.h"
#include "platform/date.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace velt {
namespace {

constexpr ChartTime Second = 1000;
constexpr ChartTime Minute = 60 * Second;
constexpr ChartTime Day = 24 * 60 * Minute;

ChartTime withinDay(ChartTime time) { return ((time % Day) + Day) % Day; }

std::string clockText(ChartTime time, bool seconds, const Locale& locale) {
    const ChartTime clock = withinDay(time) / Second;
    const char sign = locale.timeSeparator;
    char text[24];
    if (seconds)
        std::snprintf(text, sizeof text, "%02d%c%02d%c%02d", static_cast<int>(clock / 3600), sign,
                      static_cast<int>(clock / 60 % 60), sign, static_cast<int>(clock % 60));
    else
        std::snprintf(text, sizeof text, "%02d%c%02d", static_cast<int>(clock / 3600), sign,
                      static_cast<int>(clock / 60 % 60));
    return text;
}

/// Always the day, also day 0, which the default text of a date leaves out.
std::string dayText(ChartTime time, const Locale& locale) {
    const Date date = Date::fromMilliseconds(time);
    if (!date.isValid()) return conversions::text(date, locale);
    const Date::Fields f = date.fields();
    std::array<int, 3> parts = {f.day, f.month, f.year};
    if (locale.dateOrder == Locale::DateOrder::MonthDayYear) parts = {f.month, f.day, f.year};
    if (locale.dateOrder == Locale::DateOrder::YearMonthDay) parts = {f.year, f.month, f.day};
    char text[40];
    const char sign = locale.dateSeparator;
    std::snprintf(text, sizeof text, "%02d%c%02d%c%02d", parts[0], sign, parts[1], sign, parts[2]);
    return text;
}

std::string millisecondsText(ChartTime time, const Locale& locale) {
    char text[8];
    std::snprintf(text, sizeof text, "%c%03d", locale.decimalSign,
                  static_cast<int>(withinDay(time) % Second));
    return text;
}

}  // namespace

std::vector<TimeTick> timeAxis(const ChartContents& contents, const Locale& locale) {
    const int divisions = std::max(contents.divisions, 1);
    const ChartTime length = contents.end - contents.start;
    const auto timeAt = [&](int i) { return contents.start + length * i / divisions; };
    bool seconds = false;
    for (int i = 0; i <= divisions; ++i) seconds = seconds || withinDay(timeAt(i)) % Minute != 0;

    std::vector<TimeTick> ticks;
    for (int i = 0; i <= divisions; ++i)
        ticks.push_back({static_cast<double>(i) / divisions, clockText(timeAt(i), seconds, locale),
                         dayText(timeAt(i), locale)});
    return ticks;
}

std::string timeText(ChartTime time, const Locale& locale) {
    std::string text = dayText(time, locale) + " " + clockText(time, true, locale);
    if (withinDay(time) % Second != 0) text += millisecondsText(time, locale);
    return text;
}

std::string durationText(ChartTime length, const Locale& locale) {
    const ChartTime size = std::abs(length);
    std::string text = length < 0 ? "-" : "";
    if (size >= Day) text += std::to_string(size / Day) + " g ";
    text += clockText(size, true, locale);
    if (size % Second != 0) text += millisecondsText(size, locale);
    return text;
}

}  // namespace velt
