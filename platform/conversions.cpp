// SPDX-License-Identifier: MIT
#include "platform/conversions.h"

#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <vector>

namespace velt::conversions {
namespace {

[[noreturn]] void mismatch() { throw RuntimeError(ErrorNumber::TypeMismatch); }
[[noreturn]] void overflow() { throw RuntimeError(ErrorNumber::Overflow); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    const auto lower = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return std::ranges::equal(a, b, {}, lower, lower);
}

/// Integer digits with group signs, where every group behind the first sign has three digits.
/// Nothing when a sign is misplaced.
std::optional<std::string> withoutGroups(std::string_view digits, char groupSign) {
    std::string plain;
    std::size_t sinceSign = 0;
    bool grouped = false;
    for (const char c : digits) {
        if (c == groupSign) {
            const bool first = !grouped;
            if (first ? (sinceSign < 1 || sinceSign > 3) : sinceSign != 3) return std::nullopt;
            grouped = true;
            sinceSign = 0;
        } else {
            plain += c;
            ++sinceSign;
        }
    }
    if (grouped && sinceSign != 3) return std::nullopt;
    return plain;
}

/// The double of a number written in C notation, whole text. Overflow is an error, underflow 0.
double parsePlain(const std::string& text) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size()) mismatch();
    if (error == std::errc::result_out_of_range) {
        const auto exponent = text.find_first_of("eE");
        const bool tiny = exponent != std::string::npos && text[exponent + 1] == '-';
        if (!tiny) overflow();
        return 0.0;
    }
    if (error != std::errc{}) mismatch();
    return value;
}

template <typename Integer>
Integer roundTo(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Integer>::max())))
        overflow();
    return static_cast<Integer>(rounded);
}

std::string number(double value, int digits, const Locale& locale) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
    if (value == 0.0) return "0";
    std::array<char, 64> scientific{};
    std::snprintf(scientific.data(), scientific.size(), "%.*e", digits - 1, value);
    const std::string_view written(scientific.data());
    const auto exponentAt = written.find('e');
    int exponent = 0;
    const auto exponentText = written.substr(exponentAt + (written[exponentAt + 1] == '+' ? 2 : 1));
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);

    std::string mantissa;
    for (const char c : written.substr(0, exponentAt))
        if (isDigit(c)) mantissa += c;
    while (mantissa.size() > 1 && mantissa.back() == '0') mantissa.pop_back();

    std::string result = value < 0 ? "-" : "";
    if (exponent < -4 || exponent >= digits) {
        result += mantissa.substr(0, 1);
        if (mantissa.size() > 1) result += locale.decimalSign + mantissa.substr(1);
        result += exponent < 0 ? "E-" : "E+";
        const int magnitude = std::abs(exponent);
        return result + (magnitude < 10 ? "0" : "") + std::to_string(magnitude);
    }
    if (exponent < 0) {
        result += '0';
        result += locale.decimalSign;
        return result + std::string(static_cast<std::size_t>(-exponent - 1), '0') + mantissa;
    }
    const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
    if (mantissa.size() <= whole) return result + mantissa.append(whole - mantissa.size(), '0');
    return result + mantissa.substr(0, whole) + locale.decimalSign + mantissa.substr(whole);
}

std::string twoDigits(int value) { return (value < 10 ? "0" : "") + std::to_string(value); }

/// The runs of digits of a text and the characters between them.
struct DigitGroups {
    std::vector<int> values;
    std::vector<std::size_t> lengths;
    std::vector<std::string> separators;
};

DigitGroups digitGroups(std::string_view text) {
    DigitGroups groups;
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t end = at;
        while (end < text.size() && isDigit(text[end])) ++end;
        if (end == at || end - at > 4) mismatch();
        int value = 0;
        std::from_chars(text.data() + at, text.data() + end, value);
        groups.values.push_back(value);
        groups.lengths.push_back(end - at);
        at = end;
        while (end < text.size() && !isDigit(text[end])) ++end;
        if (end == at) break;
        groups.separators.emplace_back(text.substr(at, end - at));
        at = end;
    }
    if (groups.separators.size() >= groups.values.size()) mismatch();
    return groups;
}

void readDay(std::string_view text, const Locale& locale, Date::Fields& fields) {
    const DigitGroups groups = digitGroups(text);
    if (groups.values.size() != 3) mismatch();
    for (const std::string& separator : groups.separators)
        if (separator != "/" && separator != "-" && separator != "." &&
            separator != std::string(1, locale.dateSeparator))
            mismatch();

    const bool yearFirst = groups.lengths[0] == 4;
    using Order = Locale::DateOrder;
    const Order order = yearFirst ? Order::YearMonthDay : locale.dateOrder;
    const std::size_t yearAt = order == Order::YearMonthDay ? 0 : 2;
    const std::size_t monthAt = order == Order::MonthDayYear ? 0 : 1;
    fields.year = groups.values[yearAt];
    fields.month = groups.values[monthAt];
    fields.day = groups.values[3 - yearAt - monthAt];
    if (groups.lengths[yearAt] <= 2) fields.year += fields.year < 30 ? 2000 : 1900;
}

void readClock(std::string_view text, Date::Fields& fields) {
    const DigitGroups groups = digitGroups(text);
    if (groups.values.size() < 2 || groups.values.size() > 3) mismatch();
    for (const std::string& separator : groups.separators)
        if (separator != ":" && separator != ".") mismatch();
    fields.hour = groups.values[0];
    fields.minute = groups.values[1];
    fields.second = groups.values.size() == 3 ? groups.values[2] : 0;
}

}  // namespace

double toDouble(std::string_view text, const Locale& locale) {
    text = trimmed(text);
    std::string plain;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        if (text.front() == '-') plain += '-';
        text.remove_prefix(1);
    }
    const auto isWhole = [&](char c) { return isDigit(c) || c == locale.groupSign; };
    std::size_t at = 0;
    while (at < text.size() && isWhole(text[at])) ++at;
    const auto whole = withoutGroups(text.substr(0, at), locale.groupSign);
    if (!whole) mismatch();
    std::string fraction;
    if (at < text.size() && text[at] == locale.decimalSign)
        for (++at; at < text.size() && isDigit(text[at]); ++at) fraction += text[at];
    if (whole->empty() && fraction.empty()) mismatch();
    plain += whole->empty() ? "0" : *whole;
    if (!fraction.empty()) plain += "." + fraction;

    if (at < text.size() &&
        (text[at] == 'e' || text[at] == 'E' || text[at] == 'd' || text[at] == 'D')) {
        plain += 'e';
        ++at;
        if (at < text.size() && (text[at] == '-' || text[at] == '+')) plain += text[at++];
        if (at == text.size()) mismatch();
        for (; at < text.size() && isDigit(text[at]); ++at) plain += text[at];
    }
    if (at != text.size()) mismatch();
    return parsePlain(plain);
}

float toSingle(std::string_view text, const Locale& locale) {
    const double value = toDouble(text, locale);
    const auto narrowed = static_cast<float>(value);
    if (std::isinf(narrowed)) overflow();
    return narrowed;
}

std::int16_t toInt16(std::string_view text, const Locale& locale) {
    return roundTo<std::int16_t>(toDouble(text, locale));
}

std::int32_t toInt32(std::string_view text, const Locale& locale) {
    return roundTo<std::int32_t>(toDouble(text, locale));
}

std::uint8_t toByte(std::string_view text, const Locale& locale) {
    return roundTo<std::uint8_t>(toDouble(text, locale));
}

bool toBool(std::string_view text, const Locale& locale) {
    const std::string_view word = trimmed(text);
    if (equalsIgnoringCase(word, "true") || equalsIgnoringCase(word, locale.trueText)) return true;
    if (equalsIgnoringCase(word, "false") || equalsIgnoringCase(word, locale.falseText))
        return false;
    return toDouble(word, locale) != 0.0;
}

Date toDate(std::string_view text, const Locale& locale) {
    text = trimmed(text);
    Date::Fields fields;  // day 0, for a time alone
    const auto blank = text.find_first_of(" T");
    if (blank != std::string_view::npos) {
        readDay(text.substr(0, blank), locale, fields);
        readClock(trimmed(text.substr(blank + 1)), fields);
    } else if (const auto signs = std::ranges::count_if(text, [](char c) { return !isDigit(c); });
               text.find(':') != std::string_view::npos ||
               (signs == 1 && locale.timeSeparator == '.' &&
                text.find('.') != std::string_view::npos)) {
        readClock(text, fields);
    } else {
        readDay(text, locale, fields);
    }
    try {
        return Date::fromFields(fields);
    } catch (const RuntimeError&) {
        mismatch();  // a 31 of February is text of the wrong kind
    }
}

std::string text(double value, const Locale& locale) { return number(value, 15, locale); }

std::string text(float value, const Locale& locale) {
    return number(static_cast<double>(value), 7, locale);
}

std::string text(const Date& value, const Locale& locale) {
    if (!value.isValid()) return "#" + text(value.serial(), locale);
    const Date::Fields f = value.fields();
    const bool midnight = f.hour == 0 && f.minute == 0 && f.second == 0;
    const bool dayZero = f.year == 1899 && f.month == 12 && f.day == 30;
    std::string result;
    if (!dayZero || midnight) {
        if (dayZero)
            return "00" + std::string(1, locale.timeSeparator) + "00" + locale.timeSeparator + "00";
        const std::string separator(1, locale.dateSeparator);
        const std::string year = std::to_string(f.year);
        using Order = Locale::DateOrder;
        switch (locale.dateOrder) {
            case Order::DayMonthYear:
                result = twoDigits(f.day) + separator + twoDigits(f.month) + separator + year;
                break;
            case Order::MonthDayYear:
                result = twoDigits(f.month) + separator + twoDigits(f.day) + separator + year;
                break;
            case Order::YearMonthDay:
                result = year + separator + twoDigits(f.month) + separator + twoDigits(f.day);
                break;
        }
        if (midnight) return result;
        result += ' ';
    }
    const std::string separator(1, locale.timeSeparator);
    return result + twoDigits(f.hour) + separator + twoDigits(f.minute) + separator +
           twoDigits(f.second);
}

std::string text(const Variant& value, const Locale& locale) {
    return std::visit(
        [&](const auto& held) -> std::string {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, Null>)
                return "";
            else if constexpr (std::is_same_v<T, bool>)
                return held ? locale.trueText : locale.falseText;
            else if constexpr (std::is_same_v<T, std::string>)
                return held;
            else if constexpr (std::is_integral_v<T>)
                return std::to_string(held);
            else if constexpr (std::is_floating_point_v<T> || std::is_same_v<T, Date>)
                return text(held, locale);
            else
                mismatch();
        },
        value.storage());
}

std::int16_t roundToInt16(double value) { return roundTo<std::int16_t>(value); }
std::int32_t roundToInt32(double value) { return roundTo<std::int32_t>(value); }

std::optional<double> plainNumber(std::string_view text) {
    std::string plain(trimmed(text));
    if (plain.empty() || plain.find_first_not_of("+-0123456789.,eE") != std::string::npos)
        return std::nullopt;
    if (plain.starts_with('+') && !plain.starts_with("+-")) plain.erase(0, 1);
    std::ranges::replace(plain, ',', '.');
    double value = 0.0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error != std::errc{} || end != plain.data() + plain.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<std::int32_t> plainInteger(std::string_view text) {
    const auto value = plainNumber(text);
    if (!value || *value != std::trunc(*value) ||
        std::abs(*value) > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

}  // namespace velt::conversions
