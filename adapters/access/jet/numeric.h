// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"

#include <cstdint>
#include <string>

namespace velt::jet {

/// Bytes of a stored Numeric: the sign, then a number of 128 bits as four words, high first.
inline constexpr std::size_t NumericSize = 17;

/// A stored Numeric as decimal text with "." and `scale` decimals.
[[nodiscard]] std::string numericText(Bytes stored, std::uint8_t scale);

}  // namespace velt::jet
