// SPDX-License-Identifier: MIT
#include "adapters/ini/textform.h"

#include "adapters/ini/encoding.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace velt::ini {
namespace {

constexpr std::string_view escapedStart = "%\"";
constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

bool isControl(char c) { return static_cast<std::uint8_t>(c) < 0x20 && c != '\t'; }

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

/// `reserved` is a character that must not stand in the escaped form.
std::string escaped(std::string_view text, char reserved) {
    const bool wellFormed = isUtf8(text);
    std::string result(escapedStart);
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (isControl(c) || c == '%' || c == reserved || (!wellFormed && byte >= 0x80)) {
            result += '%';
            result += hexDigits[byte >> 4u];
            result += hexDigits[byte & 0xFu];
        } else {
            result += c;
        }
    }
    return result + '"';
}

std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::uint8_t byte = 0;
        if (text[at] == '%' && text.size() - at > 2) {
            const char* const end = text.data() + at + 3;
            if (std::from_chars(text.data() + at + 1, end, byte, 16).ptr == end) {
                result += static_cast<char>(byte);
                at += 2;
                continue;
            }
        }
        result += text[at];  // also a "%" that somebody wrote by hand
    }
    return result;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string readText(std::string_view raw) {
    const std::string_view text = trimmed(raw);
    if (text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
        text.front() == text.back())
        return std::string(text.substr(1, text.size() - 2));
    if (text.size() > escapedStart.size() && text.starts_with(escapedStart) && text.back() == '"')
        return unescaped(text.substr(escapedStart.size(), text.size() - escapedStart.size() - 1));
    return std::string(text);
}

std::string writtenValue(std::string_view text) {
    if (std::ranges::any_of(text, isControl) || !isUtf8(text)) return escaped(text, '\0');
    return readText(text) == text ? std::string(text) : quoted(text);
}

std::string writtenName(std::string_view text) {
    if (text.find('=') != std::string_view::npos) return escaped(text, '=');
    // What would make another line of it, or the mark of the file.
    const bool misread = text.starts_with(';') || text.starts_with('#') || text.starts_with('[') ||
                         text.starts_with(utf8Mark);
    const std::string written = writtenValue(text);
    return misread && written == text ? quoted(text) : written;
}

}  // namespace velt::ini
