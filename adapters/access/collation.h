// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velt::access {

/// The name under which engines know compareText().
inline constexpr const char* TextCollation = "jet";

/// How Access compares text: letter case does not count, accents count behind the letters,
/// trailing blanks do not count. Below 0, 0 or above 0; UTF-8, invalid bytes compare as U+FFFD.
/// Callable from any thread.
[[nodiscard]] int compareText(std::string_view a, std::string_view b);

/// `text` without differences of letter case, for comparing names.
[[nodiscard]] std::string foldCase(std::string_view text);
[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] std::string lowerCase(std::string_view text);

}  // namespace velt::access
