// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

#include <open62541/types.h>

namespace velt::opcua {

/// The civil time of this machine at an instant of OPC UA (UTC), to the millisecond. Every number
/// gives a date, though perhaps one outside the years that Date can show.
[[nodiscard]] Date toDate(UA_DateTime instant);

/// The instant of a civil time of this machine; RuntimeError 6 outside the years 1601..9999, which
/// OPC UA cannot express.
[[nodiscard]] UA_DateTime toInstant(const Date& date);

}  // namespace velt::opcua
