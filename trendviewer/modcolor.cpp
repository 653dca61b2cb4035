// SPDX-License-Identifier: MIT
#include "trendviewer/modcolor.h"

#include <charconv>

namespace velt::modColor {
namespace {

std::optional<std::uint32_t> number(std::string_view digits, int base) {
    std::uint32_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [parsed, error] = std::from_chars(digits.data(), end, value, base);
    if (error != std::errc{} || parsed != end || value > 0xFFFFFF) return std::nullopt;
    return value;
}

void appendHex(std::string& text, std::int16_t channel) {
    constexpr const char* Digits = "0123456789ABCDEF";
    text += Digits[channel >> 4];
    text += Digits[channel & 15];
}

}  // namespace

std::string text(OleColor color) {
    std::string result = "#";
    appendHex(result, Rosso(color));
    appendHex(result, Verde(color));
    appendHex(result, Blu(color));
    return result;
}

std::optional<OleColor> fromText(std::string_view text) {
    if (!text.starts_with('#')) return number(text, 10);
    if (text.size() != 7) return std::nullopt;
    const auto written = number(text.substr(1), 16);  // red foremost
    if (!written) return std::nullopt;
    return Componi(static_cast<std::uint8_t>(*written >> 16),
                   static_cast<std::uint8_t>(*written >> 8), static_cast<std::uint8_t>(*written));
}

}  // namespace velt::modColor
