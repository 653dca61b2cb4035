// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "platform/export.h"
#include "platform/locale.h"
#include "platform/variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Conversions between text and values, by the operator's locale. Text that is not of the wanted
/// kind raises RuntimeError 13 (type mismatch), a number beyond the target RuntimeError 6
/// (overflow). Rounding to whole numbers is half to even.
namespace velt::conversions {

[[nodiscard]] VELT_API double toDouble(std::string_view text, const Locale& locale);
[[nodiscard]] VELT_API float toSingle(std::string_view text, const Locale& locale);
[[nodiscard]] VELT_API std::int16_t toInt16(std::string_view text, const Locale& locale);
[[nodiscard]] VELT_API std::int32_t toInt32(std::string_view text, const Locale& locale);
[[nodiscard]] VELT_API std::uint8_t toByte(std::string_view text, const Locale& locale);
/// True and False in English or in the locale's words, any letter case, or a number (0 is False).
[[nodiscard]] VELT_API bool toBool(std::string_view text, const Locale& locale);
/// A date, a time, or both; years of two digits lie in 1930..2029.
[[nodiscard]] VELT_API Date toDate(std::string_view text, const Locale& locale);

/// At most 15 significant digits; exponents below -4 or above 14 in scientific form ("1,5E+20").
[[nodiscard]] VELT_API std::string text(double value, const Locale& locale);
/// At most 7 significant digits.
[[nodiscard]] VELT_API std::string text(float value, const Locale& locale);
/// Date and time; the time alone on day 0, the date alone at midnight. A date that cannot be
/// shown (outside the years 100..9999) reads "#" and its number.
[[nodiscard]] VELT_API std::string text(const Date& value, const Locale& locale);
/// The default text of a scalar; Empty and Null read "". RuntimeError 13 for an array.
[[nodiscard]] VELT_API std::string text(const Variant& value, const Locale& locale);

/// Nearest whole number, half to even; RuntimeError 6 when it does not fit.
[[nodiscard]] VELT_API std::int16_t roundToInt16(double value);
[[nodiscard]] VELT_API std::int32_t roundToInt32(double value);

/// Decimal number of a settings file, independent of the locale: "." or "," is the decimal sign,
/// no group signs. Nothing when the text is not a finite number.
[[nodiscard]] VELT_API std::optional<double> plainNumber(std::string_view text);
/// As plainNumber, for whole numbers within the target only.
[[nodiscard]] VELT_API std::optional<std::int32_t> plainInteger(std::string_view text);

}  // namespace velt::conversions
