// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velt::jet {

/// Bytes of a stored Numeric: the sign, then a number of 128 bits as four words, high first.
inline constexpr std::size_t NumericSize = 17;

/// A stored Numeric as decimal text with "." and `scale` decimals.
[[nodiscard]] std::string numericText(Bytes stored, std::uint8_t scale);

/// The stored form of decimal text such as "-12.5"; nothing when it is no such text or has more
/// than `precision` digits or `scale` decimals.
[[nodiscard]] std::optional<std::array<std::uint8_t, NumericSize>> parseNumeric(
    std::string_view text, std::uint8_t precision, std::uint8_t scale);

}  // namespace velt::jet
