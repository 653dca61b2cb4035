// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/propertybag.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Colours as 32-bit numbers: red in the lowest eight bits, then green, then blue.
namespace velt::modColor {

[[nodiscard]] constexpr OleColor Componi(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return OleColor{red} + OleColor{green} * 256 + OleColor{blue} * 65536;
}
[[nodiscard]] constexpr std::int16_t Rosso(OleColor color) {
    return static_cast<std::int16_t>(color & 255);
}
[[nodiscard]] constexpr std::int16_t Verde(OleColor color) {
    return static_cast<std::int16_t>((color >> 8) & 255);
}
[[nodiscard]] constexpr std::int16_t Blu(OleColor color) {
    return static_cast<std::int16_t>((color >> 16) & 255);
}

/// "#RRGGBB".
[[nodiscard]] VELT_API std::string text(OleColor color);
/// Reads "#RRGGBB" or the number in decimal; nothing for any other text.
[[nodiscard]] VELT_API std::optional<OleColor> fromText(std::string_view text);

}  // namespace velt::modColor
