// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "platform/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// "YYYY-MM-DD HH:MM:SS", followed by "." and three digits when the milliseconds are not zero: the
/// form in which dates go to files and to other programs, whatever the operator's locale.
/// RuntimeError 6 outside the years 100..9999.
[[nodiscard]] VELT_API std::string isoText(const Date& date);

/// Reads exactly what isoText writes; nothing for any other text.
[[nodiscard]] VELT_API std::optional<Date> fromIsoText(std::string_view text);

}  // namespace velt
