// SPDX-License-Identifier: MIT
#include "adapters/access/dateliteral.h"

#include "platform/runtimeerror.h"

#include <charconv>

namespace velt::access {
namespace {

/// Reads a literal from left to right; every step says whether it fitted.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    /// A whole number of at most `digits` digits; its length is left in `length`.
    bool number(int& value, std::size_t digits, std::size_t& length) {
        length = 0;
        while (length < rest_.size() && rest_[length] >= '0' && rest_[length] <= '9') ++length;
        if (length == 0 || length > digits) return false;
        std::from_chars(rest_.data(), rest_.data() + length, value);
        rest_.remove_prefix(length);
        return true;
    }
    bool number(int& value) {
        std::size_t length = 0;
        return number(value, 2, length);
    }
    bool take(char c) {
        if (rest_.empty() || rest_.front() != c) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool takeBlanks() {
        const bool any = take(' ');
        while (take(' ')) {
        }
        return any;
    }
    bool takeLetter(char upper) { return take(upper) || take(static_cast<char>(upper + 32)); }

private:
    std::string_view rest_;
};

int fullYear(int year, std::size_t digits) {
    if (digits > 2) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

/// The clock from the ":" on; the hours are already in the fields.
bool readClock(Reader& reader, Date::Fields& fields) {
    if (!reader.take(':') || !reader.number(fields.minute)) return false;
    if (reader.take(':') && !reader.number(fields.second)) return false;
    reader.takeBlanks();
    const bool am = reader.takeLetter('A');
    if (am || reader.takeLetter('P')) {
        if (!reader.takeLetter('M') || fields.hour < 1 || fields.hour > 12) return false;
        fields.hour = fields.hour % 12 + (am ? 0 : 12);
    }
    return true;
}

/// The day behind its first number.
bool readDay(Reader& reader, int first, std::size_t firstLength, Date::Fields& fields) {
    std::size_t length = 0;
    if (reader.take('-')) {
        fields.year = first;
        return firstLength == 4 && reader.number(fields.month) && reader.take('-') &&
               reader.number(fields.day);
    }
    fields.month = first;
    if (firstLength > 2 || !reader.take('/') || !reader.number(fields.day) || !reader.take('/') ||
        !reader.number(fields.year, 4, length))
        return false;
    fields.year = fullYear(fields.year, length);
    return length == 2 || length == 4;
}

bool readAll(std::string_view text, Date::Fields& fields) {
    Reader reader(text);
    reader.takeBlanks();
    int first = 0;
    std::size_t length = 0;
    if (!reader.number(first, 4, length)) return false;
    if (Reader clock = reader; clock.take(':')) {
        fields.hour = first;
        if (length > 2 || !readClock(reader, fields)) return false;
    } else {
        if (!readDay(reader, first, length, fields)) return false;
        if (reader.takeBlanks() && !reader.atEnd()) {
            if (!reader.number(fields.hour) || !readClock(reader, fields)) return false;
        }
    }
    reader.takeBlanks();
    return reader.atEnd();
}

}  // namespace

std::optional<Date> parseDateLiteral(std::string_view text) {
    Date::Fields fields;
    if (!readAll(text, fields)) return std::nullopt;
    try {
        return Date::fromFields(fields);
    } catch (const RuntimeError&) {
        return std::nullopt;  // well-formed, but there is no such day or time
    }
}

}  // namespace velt::access
