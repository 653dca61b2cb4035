// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

#include <QDateTime>

namespace velt::qt {

/// Civil dates and times as Qt's, in UTC: there no hour is missing or comes twice. A date outside
/// the years 100..9999 becomes the nearest bound.
[[nodiscard]] QDateTime toQt(const Date& date);
[[nodiscard]] Date fromQt(const QDateTime& dateTime);

/// The first and the last moment that can be converted.
[[nodiscard]] QDateTime firstMoment();
[[nodiscard]] QDateTime lastMoment();

}  // namespace velt::qt
