// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <compare>
#include <cstdint>

namespace velt {

/// A civil date and time without zone: days since 1899-12-30 with the time of day as fraction,
/// as Access stores it. For negative values the fraction still counts forward from the day
/// (-1.25 is 1899-12-29 06:00). All arithmetic goes through whole milliseconds, so that adding
/// and taking apart never shows rounding.
class VELT_API Date {
public:
    /// Calendar and clock fields, proleptic Gregorian.
    struct Fields {
        int year = 1899;
        int month = 12;  ///< 1..12
        int day = 30;    ///< 1..31
        int hour = 0;
        int minute = 0;
        int second = 0;
        int millisecond = 0;
        friend bool operator==(const Fields&, const Fields&) = default;
    };

    constexpr Date() = default;
    constexpr explicit Date(double serial) : serial_(serial) {}
    /// From calendar fields; RuntimeError 5 when a field is out of its range or the year is not
    /// in 100..9999.
    [[nodiscard]] static Date fromFields(const Fields& fields);
    /// From milliseconds since 1899-12-30 00:00.
    [[nodiscard]] static Date fromMilliseconds(std::int64_t milliseconds);

    /// The stored double.
    [[nodiscard]] constexpr double serial() const { return serial_; }
    /// Whole milliseconds since 1899-12-30 00:00, rounded. Not finite, or beyond the year 9999 by
    /// far: RuntimeError 6.
    [[nodiscard]] std::int64_t milliseconds() const;
    /// Calendar fields; RuntimeError 6 outside the years 100..9999.
    [[nodiscard]] Fields fields() const;
    /// True when fields() can be asked for.
    [[nodiscard]] bool isValid() const;

    /// This instant plus `seconds` (fractions are kept to the millisecond).
    [[nodiscard]] Date addSeconds(double seconds) const;
    /// The same day at another time of day, seconds and milliseconds 0.
    [[nodiscard]] Date withTime(int hour, int minute) const;

    friend bool operator==(const Date& a, const Date& b) { return a.linear() == b.linear(); }
    /// Order in time (not of the doubles: they run backwards within a day before 1899-12-30).
    friend std::partial_ordering operator<=>(const Date& a, const Date& b) {
        return a.linear() <=> b.linear();
    }

private:
    /// Days as a number that grows with time, also below zero.
    [[nodiscard]] double linear() const;

    double serial_ = 0.0;
};

/// Whole seconds from `start` to `end`, counting the second boundaries between them.
[[nodiscard]] VELT_API std::int64_t secondsBetween(const Date& start, const Date& end);

}  // namespace velt
