// SPDX-License-Identifier: MIT
#include "adapters/access/jet/textencoder.h"

#include "platform/characters.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <string>

namespace velt::jet {
namespace {

constexpr char16_t ByteOrderMark = 0xFEFF;
// Compressed text carries a mark of two bytes: it pays from three characters on.
constexpr std::size_t FewestCompressed = 3;

/// What begins no character is taken as U+FFFD, byte by byte.
char32_t takeCharacter(std::string_view& text) {
    return takeUtf8(text).value_or(ReplacementCharacter);
}

std::u16string toUtf16(std::string_view text) {
    std::u16string units;
    while (!text.empty()) {
        const char32_t c = takeCharacter(text);
        if (c < 0x10000) {
            units.push_back(static_cast<char16_t>(c));
        } else {
            units.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
            units.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
        }
    }
    return units;
}

std::size_t appendWindows1252(std::string_view text, std::vector<std::uint8_t>& out) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        const auto byte = toWindows1252(takeCharacter(text));
        if (!byte)
            throw RuntimeError(ErrorNumber::TypeMismatch,
                               "Il testo contiene un carattere che il formato non prevede");
        out.push_back(*byte);
    }
    return count;
}

std::size_t appendUtf16(const std::u16string& units, bool compressible,
                        std::vector<std::uint8_t>& out) {
    const bool compress = compressible && units.size() >= FewestCompressed &&
                          std::ranges::all_of(units, [](char16_t u) { return u > 0 && u < 0x100; });
    if (compress) {
        out.push_back(0xFF);
        out.push_back(0xFE);
    } else if (!units.empty() && units.front() == ByteOrderMark) {
        // Would read as the mark of compressed text.
        throw RuntimeError(ErrorNumber::TypeMismatch,
                           "Il testo comincia con un segno d'ordine dei byte");
    }
    for (const char16_t unit : units) {
        out.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        if (!compress) out.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return units.size();
}

}  // namespace

std::size_t appendText(std::string_view text, TextEncoding encoding, bool compressible,
                       std::vector<std::uint8_t>& out) {
    const Bytes bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    const bool jet3 = encoding == TextEncoding::Windows1252;
    // The usual case, plain text stored a byte per character, needs no decoding.
    if (isPlain(bytes) && (jet3 || (compressible && text.size() >= FewestCompressed))) {
        if (!jet3) out.insert(out.end(), {0xFF, 0xFE});
        out.insert(out.end(), bytes.begin(), bytes.end());
        return text.size();
    }
    return jet3 ? appendWindows1252(text, out) : appendUtf16(toUtf16(text), compressible, out);
}

}  // namespace velt::jet
