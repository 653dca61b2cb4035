// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

#include <optional>
#include <string>

namespace velt::access {

/// `(field >= #start# AND field <= #end#)`, both bounds inclusive; a bound that is not there is
/// left out, "" without any. Literals count whole seconds: a start with milliseconds is rounded
/// down and an end up, so that the range never loses what the caller asked for. RuntimeError 6
/// for a bound outside the years 100..9999.
[[nodiscard]] std::string dateCondition(const std::string& field, const std::optional<Date>& start,
                                        const std::optional<Date>& end);

/// `field = 'value'`, quotes in the value doubled.
[[nodiscard]] std::string fieldCondition(const std::string& field, const std::string& value);

}  // namespace velt::access
