// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace velt::jet {

/// The characters of bytes 0x80 to 0x9F; elsewhere Windows-1252 is Latin-1. U+FFFD: no character.
inline constexpr std::array<char16_t, 32> Windows1252High{
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

[[nodiscard]] constexpr char32_t windows1252ToUnicode(std::uint8_t byte) {
    return byte >= 0x80 && byte < 0xA0 ? Windows1252High[byte - 0x80U] : byte;
}

/// Nothing for a character that the code page does not have.
[[nodiscard]] constexpr std::optional<std::uint8_t> unicodeToWindows1252(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<std::uint8_t>(c);
    if (c == 0xFFFD) return {};
    for (std::size_t i = 0; i < Windows1252High.size(); ++i)
        if (Windows1252High[i] == c) return static_cast<std::uint8_t>(0x80 + i);
    return {};
}

}  // namespace velt::jet
