// SPDX-License-Identifier: MIT
#include "adapters/ini/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace velt::ini {
namespace {

/// The characters of bytes 0x80..0x9F; all other bytes are their own character.
constexpr std::array<char32_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t byteAt(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint8_t>(bytes[at]);
}

/// The UTF-8 character at `at`, which is moved behind it; nothing when it is malformed.
std::optional<char32_t> nextCharacter(std::string_view bytes, std::size_t& at) {
    const std::uint8_t lead = byteAt(bytes, at);
    if (lead < 0x80) {
        ++at;
        return lead;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() - at < length) return std::nullopt;
    char32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const std::uint8_t next = byteAt(bytes, at + i);
        if ((next & 0xC0u) != 0x80u) return std::nullopt;
        character = (character << 6u) | (next & 0x3Fu);
    }
    const char32_t smallest = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < smallest || character > 0x10FFFF || surrogate) return std::nullopt;
    at += length;
    return character;
}

/// Up to U+FFFF: more does not occur in a code page.
void appendUtf8(std::string& text, char32_t character) {
    const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0u | (character >> 6u));
        add(0x80u | (character & 0x3Fu));
    } else {
        add(0xE0u | (character >> 12u));
        add(0x80u | ((character >> 6u) & 0x3Fu));
        add(0x80u | (character & 0x3Fu));
    }
}

}  // namespace

bool isUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();)
        if (!nextCharacter(bytes, at)) return false;
    return true;
}

bool isAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
}

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        appendUtf8(text, byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80u] : byte);
    }
    return text;
}

std::optional<std::string> toWindows1252(std::string_view utf8) {
    std::string bytes;
    for (std::size_t at = 0; at < utf8.size();) {
        const auto character = nextCharacter(utf8, at);
        if (!character) return std::nullopt;
        if (*character < 0x80 || (*character >= 0xA0 && *character <= 0xFF)) {
            bytes += static_cast<char>(*character);
            continue;
        }
        const auto* const found = std::ranges::find(upperControls, *character);
        if (found == upperControls.end()) return std::nullopt;
        bytes += static_cast<char>(0x80 + (found - upperControls.begin()));
    }
    return bytes;
}

}  // namespace velt::ini
