// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

#include <string>

/// Numbers and dates as text where a query itself makes text of them: the same everywhere, whatever
/// the operator's locale.
namespace velt::access {

/// At most 15 significant digits, "." as decimal sign.
[[nodiscard]] std::string plainText(double number);
/// As isoText(); the number of a date that cannot be shown.
[[nodiscard]] std::string plainText(const Date& date);

}  // namespace velt::access
