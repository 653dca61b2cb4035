// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace velt {

Date SystemClock::now() {
    using namespace std::chrono;
    const auto instant = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(floor<std::chrono::seconds>(instant));
    std::tm local{};
    localtime_r(&seconds, &local);
    const auto millisecond =
        duration_cast<milliseconds>(instant - floor<std::chrono::seconds>(instant)).count();
    return Date::fromFields({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                             local.tm_min, local.tm_sec < 60 ? local.tm_sec : 59,
                             static_cast<int>(millisecond)});
}

}  // namespace velt
