// SPDX-License-Identifier: MIT
#include "platform/date.h"

#include "platform/runtimeerror.h"

#include <chrono>
#include <cmath>

namespace velt {
namespace {

constexpr std::int64_t MillisecondsPerDay = 86'400'000;
// Days that any Access date can hold, with room for arithmetic: about 27,000 years either way.
constexpr double MaxDays = 10'000'000.0;

constexpr std::chrono::sys_days epoch() {
    using namespace std::chrono;
    return sys_days{year{1899} / December / 30};
}

std::int64_t floorDiv(std::int64_t value, std::int64_t divisor) {
    const std::int64_t quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

}  // namespace

double Date::linear() const {
    if (serial_ >= 0.0 || !std::isfinite(serial_)) return serial_;
    const double day = std::trunc(serial_);
    return day + (day - serial_);
}

std::int64_t Date::milliseconds() const {
    const double days = linear();
    if (!std::isfinite(days) || std::abs(days) > MaxDays) throw RuntimeError(ErrorNumber::Overflow);
    const double day = std::floor(days);
    return static_cast<std::int64_t>(day) * MillisecondsPerDay +
           std::llround((days - day) * static_cast<double>(MillisecondsPerDay));
}

Date Date::fromMilliseconds(std::int64_t milliseconds) {
    const std::int64_t day = floorDiv(milliseconds, MillisecondsPerDay);
    const double fraction = static_cast<double>(milliseconds - day * MillisecondsPerDay) /
                            static_cast<double>(MillisecondsPerDay);
    const double days = static_cast<double>(day);
    return Date(day >= 0 ? days + fraction : days - fraction);
}

Date Date::fromFields(const Fields& f) {
    using namespace std::chrono;
    const year_month_day ymd{year{f.year}, month{static_cast<unsigned>(f.month)},
                             day{static_cast<unsigned>(f.day)}};
    const bool fits = f.year >= 100 && f.year <= 9999 && ymd.ok() && f.hour >= 0 && f.hour < 24 &&
                      f.minute >= 0 && f.minute < 60 && f.second >= 0 && f.second < 60 &&
                      f.millisecond >= 0 && f.millisecond < 1000;
    if (!fits) throw RuntimeError(ErrorNumber::InvalidCall);
    const std::int64_t days = (sys_days{ymd} - epoch()).count();
    const std::int64_t clock =
        ((f.hour * 60LL + f.minute) * 60LL + f.second) * 1000LL + f.millisecond;
    return fromMilliseconds(days * MillisecondsPerDay + clock);
}

Date::Fields Date::fields() const {
    using namespace std::chrono;
    const std::int64_t total = milliseconds();
    const std::int64_t days = floorDiv(total, MillisecondsPerDay);
    const year_month_day ymd{epoch() + std::chrono::days{days}};
    const int year = static_cast<int>(ymd.year());
    if (year < 100 || year > 9999) throw RuntimeError(ErrorNumber::Overflow);
    const int clock = static_cast<int>(total - days * MillisecondsPerDay);
    return {year,
            static_cast<int>(static_cast<unsigned>(ymd.month())),
            static_cast<int>(static_cast<unsigned>(ymd.day())),
            clock / 3'600'000,
            clock / 60'000 % 60,
            clock / 1000 % 60,
            clock % 1000};
}

bool Date::isValid() const {
    // 0100-01-01 and 10000-01-01 as days since the epoch.
    const double days = linear();
    return days >= -657'434.0 && days < 2'958'466.0 - 0.5 / static_cast<double>(MillisecondsPerDay);
}

Date Date::addSeconds(double seconds) const {
    const double delta = std::nearbyint(seconds * 1000.0);
    if (!(std::abs(delta) <= MaxDays * static_cast<double>(MillisecondsPerDay)))
        throw RuntimeError(ErrorNumber::Overflow);
    return fromMilliseconds(milliseconds() + static_cast<std::int64_t>(delta));
}

Date Date::withTime(int hour, int minute) const {
    const std::int64_t day = floorDiv(milliseconds(), MillisecondsPerDay);
    return fromMilliseconds(day * MillisecondsPerDay + (hour * 60LL + minute) * 60'000LL);
}

std::int64_t secondsBetween(const Date& start, const Date& end) {
    return floorDiv(end.milliseconds(), 1000) - floorDiv(start.milliseconds(), 1000);
}

}  // namespace velt
