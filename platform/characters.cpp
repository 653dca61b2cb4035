// SPDX-License-Identifier: MIT
#include "platform/characters.h"

#include <algorithm>
#include <array>

namespace velt {
namespace {

/// The characters of bytes 0x80..0x9F; all other bytes are their own character.
constexpr std::array<char16_t, 32> windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t byteAt(std::string_view text, std::size_t at) {
    return static_cast<std::uint8_t>(text[at]);
}

/// The character of `length` bytes that the text begins with, if it does.
std::optional<char32_t> characterOf(std::string_view text, std::size_t length) {
    const std::uint8_t lead = byteAt(text, 0);
    if (length == 1) return lead;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return std::nullopt;
    char32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(text, i) & 0xC0u) != 0x80u) return std::nullopt;
        character = (character << 6u) | (byteAt(text, i) & 0x3Fu);
    }
    const char32_t smallest = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < smallest || character > 0x10FFFF || surrogate) return std::nullopt;
    return character;
}

/// The second byte of a letter U+00C0..U+00DE (C3 80..C3 9E), between which stands a sign.
bool isLatinCapital(std::uint8_t lead, std::uint8_t trail) {
    constexpr std::uint8_t multiplicationSign = 0x97;
    return lead == 0xC3 && trail >= 0x80 && trail <= 0x9E && trail != multiplicationSign;
}

}  // namespace

void appendUtf8(char32_t character, std::string& text) {
    const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    const auto addTail = [&](unsigned shift) { add(0x80u | (character >> shift & 0x3Fu)); };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0u | character >> 6u);
    } else if (character < 0x10000) {
        add(0xE0u | character >> 12u);
        addTail(6);
    } else {
        add(0xF0u | character >> 18u);
        addTail(12);
        addTail(6);
    }
    addTail(0);
}

std::optional<char32_t> takeUtf8(std::string_view& text) {
    const std::uint8_t lead = byteAt(text, 0);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    const auto character = characterOf(text, length);
    text.remove_prefix(character ? length : 1);
    return character;
}

char32_t fromWindows1252(std::uint8_t byte) {
    return byte >= 0x80 && byte < 0xA0 ? windows1252High[byte - 0x80u] : byte;
}

std::optional<std::uint8_t> toWindows1252(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<std::uint8_t>(character);
    const auto* const found = std::ranges::find(windows1252High, character);
    if (found == windows1252High.end()) return std::nullopt;
    return static_cast<std::uint8_t>(0x80 + (found - windows1252High.begin()));
}

std::string foldLatin(std::string_view name) {
    std::string folded(name);
    for (std::size_t i = 0; i < name.size(); ++i) {
        const std::uint8_t byte = byteAt(name, i);
        const bool capital =
            (byte >= 'A' && byte <= 'Z') || (i > 0 && isLatinCapital(byteAt(name, i - 1), byte));
        if (capital) folded[i] = static_cast<char>(byte + 0x20);
    }
    return folded;
}

}  // namespace velt
