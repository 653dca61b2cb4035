// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/locale.h"

#include <string>
#include <vector>

namespace velt {

struct TimeTick {
    double place = 0;   ///< 0 at the start of the axis, 1 at its end
    std::string clock;  ///< "07.30", with seconds where the axis needs them
    std::string day;    ///< "14/03/2006"
};

/// The lines of a time axis: one more than its divisions.
[[nodiscard]] VELT_API std::vector<TimeTick> timeAxis(const ChartContents& contents,
                                                      const Locale& locale);

/// A moment in full, with milliseconds where it has some.
[[nodiscard]] VELT_API std::string timeText(ChartTime time, const Locale& locale);

/// A length of time: "3 g 04.05.06"; "-" before a negative one.
[[nodiscard]] VELT_API std::string durationText(ChartTime length, const Locale& locale);

}  // namespace velt
