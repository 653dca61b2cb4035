// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// How names and values stand in a line of a settings file.
///
/// Almost every text stands there as it is. Blanks around it do not count, and a pair of quotes
/// (" or ') around it is taken off once, as Windows programs write and read it; a backslash means
/// nothing. A text that would not survive this is put between double quotes, with nothing changed
/// inside: `" x "` is a text with blanks, `""x""` one with quotes of its own. A text with line
/// breaks, other control characters or malformed UTF-8 stands in the escaped form `%"..."`, where
/// %XX is the byte with this hexadecimal number.
namespace velt::ini {

/// `text` without the blanks (space, tab, carriage return) at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The text that stands in a line as `raw`.
[[nodiscard]] std::string readText(std::string_view raw);

/// The form that readText turns into `text` again, whatever its bytes.
[[nodiscard]] std::string writtenValue(std::string_view text);
/// As writtenValue, and fit to stand before an "=" or between brackets.
[[nodiscard]] std::string writtenName(std::string_view text);

}  // namespace velt::ini
