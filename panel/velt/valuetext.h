// SPDX-License-Identifier: MIT
#pragma once

#include "platform/variant.h"

#include <string>

namespace velt::cli {

/// The text of a value for other programs: numbers with "." and as many digits as it takes to get
/// the same number back, dates as isoText (as the number of days outside the years 100..9999),
/// Booleans 1 and 0. Null and Empty are "".
[[nodiscard]] std::string valueText(const Variant& value);

/// True for values that stand right-aligned in a column.
[[nodiscard]] bool isNumber(const Variant& value);

}  // namespace velt::cli
