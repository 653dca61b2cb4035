// SPDX-License-Identifier: MIT
#include "adapters/opcua/times.h"

#include "platform/runtimeerror.h"

#include <chrono>
#include <ctime>

namespace velt::opcua {
namespace {

using namespace std::chrono;

constexpr std::int64_t millisecondsFrom1601(year_month_day day) {
    return milliseconds(sys_days(day) - sys_days(year{1601} / January / 1)).count();
}

constexpr std::int64_t DateEpoch = millisecondsFrom1601(year{1899} / December / 30);
constexpr std::int64_t UnixEpoch = millisecondsFrom1601(year{1970} / January / 1);

std::int64_t floorDiv(std::int64_t value, std::int64_t divisor) {
    const std::int64_t quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

/// How far local time is ahead of UTC, in milliseconds, at a moment since 1601 in UTC. Zones
/// change their offset on a quarter of an hour at the earliest: the last quarter is remembered,
/// since most values come with the present time.
std::int64_t localOffset(std::int64_t utcMilliseconds) {
    struct Quarter {
        std::int64_t number = INT64_MIN;
        std::int64_t offset = 0;
    };
    thread_local Quarter last;
    constexpr std::int64_t QuarterSeconds = 900;
    const std::int64_t seconds = floorDiv(utcMilliseconds - UnixEpoch, 1000);
    const std::int64_t number = floorDiv(seconds, QuarterSeconds);
    if (number != last.number) {
        const std::time_t time = seconds;
        std::tm local{};
        last = {number, localtime_r(&time, &local) ? local.tm_gmtoff * 1000LL : 0};
    }
    return last.offset;
}

}  // namespace

Date toDate(UA_DateTime instant) {
    const std::int64_t utc = floorDiv(instant, UA_DATETIME_MSEC);
    return Date::fromMilliseconds(utc + localOffset(utc) - DateEpoch);
}

UA_DateTime toInstant(const Date& date) {
    constexpr std::int64_t End = millisecondsFrom1601(year{10000} / January / 1);
    const std::int64_t local = date.milliseconds() + DateEpoch;
    const std::int64_t utc = local - localOffset(local - localOffset(local));
    if (utc <= 0 || utc >= End)
        throw RuntimeError(ErrorNumber::Overflow,
                           "La data non è compresa tra gli anni 1601 e 9999");
    return utc * UA_DATETIME_MSEC;
}

}  // namespace velt::opcua
