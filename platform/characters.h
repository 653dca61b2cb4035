// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Characters and the bytes that stand for them in the files of a telecontrol installation.
namespace velt {

/// Stands for what cannot be read as a character.
inline constexpr char32_t ReplacementCharacter = 0xFFFD;

VELT_API void appendUtf8(char32_t character, std::string& text);

/// Takes the first character off a text that is not empty. Strict: nothing for overlong forms,
/// surrogates and what lies above U+10FFFF; then one byte alone is taken off.
[[nodiscard]] VELT_API std::optional<char32_t> takeUtf8(std::string_view& text);

/// The five bytes that the code page leaves undefined are the control characters of the same
/// number, as Windows does it, so that every byte has a way back.
[[nodiscard]] VELT_API char32_t fromWindows1252(std::uint8_t byte);
/// Nothing for a character that the code page does not have.
[[nodiscard]] VELT_API std::optional<std::uint8_t> toWindows1252(char32_t character);

/// A name in UTF-8 with its Latin capitals (A to Z, À to Þ) made small; both cases are equally
/// long.
[[nodiscard]] VELT_API std::string foldLatin(std::string_view name);

}  // namespace velt
