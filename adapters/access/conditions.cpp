// SPDX-License-Identifier: MIT
#include "adapters/access/conditions.h"

#include "adapters/access/enclosed.h"
#include "platform/isodate.h"

namespace velt::access {
namespace {

/// Without the milliseconds.
std::string literal(const Date& date) {
    constexpr std::size_t upToSeconds = 19;
    return '#' + isoText(date).substr(0, upToSeconds) + '#';
}

Date upToWholeSecond(const Date& date) {
    const int millisecond = date.fields().millisecond;
    return millisecond == 0 ? date : date.addSeconds((1000 - millisecond) / 1000.0);
}

}  // namespace

std::string dateCondition(const std::string& field, const std::optional<Date>& start,
                          const std::optional<Date>& end) {
    if (!start && !end) return "";
    std::string condition = "(";
    if (start) condition += field + " >= " + literal(*start);
    if (start && end) condition += " AND ";
    if (end) condition += field + " <= " + literal(upToWholeSecond(*end));
    return condition + ")";
}

std::string fieldCondition(const std::string& field, const std::string& value) {
    return field + " = " + enclosed(value, '\'');
}

}  // namespace velt::access
