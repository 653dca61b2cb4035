// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <span>

/// The lengths that a trend viewer's window can have, by their position in its range list.
namespace velt {

/// Texts of the range list, in its order.
[[nodiscard]] VELT_API std::span<const char* const> testiIntervallo();

/// Length in seconds; 3600 for a position beyond the list. The entries of months are fixed numbers
/// of days (35, 63 and 92), so that the divisions of the first two are whole weeks.
[[nodiscard]] VELT_API std::int32_t SecondiIntervallo(std::int16_t index);

/// Divisions of the time axis; 4 for a position beyond the list.
[[nodiscard]] VELT_API std::int16_t DivisioniIntervallo(std::int16_t index);

}  // namespace velt
