// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The character encodings of settings files.
namespace velt::ini {

inline constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

/// Strict: no overlong forms, no surrogates, nothing above U+10FFFF. True for plain ASCII.
[[nodiscard]] bool isUtf8(std::string_view bytes);
[[nodiscard]] bool isAscii(std::string_view bytes);

/// Windows-1252 to UTF-8; every byte has a way back.
[[nodiscard]] std::string fromWindows1252(std::string_view bytes);
/// UTF-8 to Windows-1252; nothing when a character is not in the code page.
[[nodiscard]] std::optional<std::string> toWindows1252(std::string_view utf8);

}  // namespace velt::ini
