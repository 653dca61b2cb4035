// SPDX-License-Identifier: MIT
#include "platform/isodate.h"

#include "platform/runtimeerror.h"

#include <array>
#include <cstdio>

namespace velt {
namespace {

constexpr std::string_view shape = "dddd-dd-dd dd:dd:dd.ddd";
constexpr std::size_t withoutMilliseconds = 19;

bool hasShape(std::string_view text) {
    if (text.size() != withoutMilliseconds && text.size() != shape.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (shape[i] == 'd' ? !digit : text[i] != shape[i]) return false;
    }
    return true;
}

int digits(std::string_view text) {
    int value = 0;
    for (const char c : text) value = 10 * value + (c - '0');
    return value;
}

}  // namespace

std::string isoText(const Date& date) {
    const Date::Fields f = date.fields();
    std::array<char, 80> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02d %02d:%02d:%02d.%03d", f.year,
                  f.month, f.day, f.hour, f.minute, f.second, f.millisecond);
    std::string text(buffer.data());
    if (f.millisecond == 0) text.resize(withoutMilliseconds);
    return text;
}

std::optional<Date> fromIsoText(std::string_view text) {
    if (!hasShape(text)) return std::nullopt;
    try {
        return Date::fromFields({digits(text.substr(0, 4)), digits(text.substr(5, 2)),
                                 digits(text.substr(8, 2)), digits(text.substr(11, 2)),
                                 digits(text.substr(14, 2)), digits(text.substr(17, 2)),
                                 text.size() > withoutMilliseconds ? digits(text.substr(20)) : 0});
    } catch (const RuntimeError&) {
        return std::nullopt;  // well written, but no day or time of the calendar
    }
}

}  // namespace velt
