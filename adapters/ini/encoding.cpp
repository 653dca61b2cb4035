// SPDX-License-Identifier: MIT
#include "adapters/ini/encoding.h"

#include "platform/characters.h"

#include <algorithm>

namespace velt::ini {

bool isUtf8(std::string_view bytes) {
    while (!bytes.empty())
        if (!takeUtf8(bytes)) return false;
    return true;
}

bool isAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
}

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    for (const char c : bytes)
        appendUtf8(velt::fromWindows1252(static_cast<std::uint8_t>(c)), text);
    return text;
}

std::optional<std::string> toWindows1252(std::string_view utf8) {
    std::string bytes;
    while (!utf8.empty()) {
        const auto character = takeUtf8(utf8);
        const auto byte = character ? velt::toWindows1252(*character) : std::nullopt;
        if (!byte) return std::nullopt;
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

}  // namespace velt::ini
