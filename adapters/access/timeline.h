// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

/// Before 1899-12-30 the stored number of a date runs backwards within a day (-1.25 is 06:00 of the
/// day before). Queries compare and sort dates as days that always grow with time (-0.75).
namespace velt::access {

[[nodiscard]] inline double toTimeline(double serial) {
    if (!(serial < 0.0) || std::isinf(serial)) return serial;
    const double day = std::trunc(serial);
    return day + (day - serial);
}

[[nodiscard]] inline double fromTimeline(double days) {
    if (!(days < 0.0) || std::isinf(days)) return days;
    const double day = std::floor(days);
    return day - (days - day);
}

}  // namespace velt::access
