// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

#include <optional>
#include <string_view>

namespace velt::access {

/// The date that the inside of a `#...#` literal means: year-month-day, or month/day/year whatever
/// the operator's locale, optionally with a time, or a time alone (hours:minutes[:seconds], with
/// AM or PM). Years of two digits lie in 1930..2029. Nothing when it is malformed or no date.
[[nodiscard]] std::optional<Date> parseDateLiteral(std::string_view text);

}  // namespace velt::access
