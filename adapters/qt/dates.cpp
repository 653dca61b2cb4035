// SPDX-License-Identifier: MIT
#include "adapters/qt/dates.h"

namespace velt::qt {
namespace {

/// Milliseconds from 1899-12-30, where Date counts from, to 1970-01-01.
constexpr qint64 Epoch = 25569LL * 24 * 60 * 60 * 1000;

}  // namespace

QDateTime firstMoment() { return {QDate(100, 1, 1), QTime(0, 0), Qt::UTC}; }
QDateTime lastMoment() { return {QDate(9999, 12, 31), QTime(23, 59, 59, 999), Qt::UTC}; }

QDateTime toQt(const Date& date) {
    if (date.isValid()) return QDateTime::fromMSecsSinceEpoch(date.milliseconds() - Epoch, Qt::UTC);
    return date.serial() < 0 ? firstMoment() : lastMoment();
}

Date fromQt(const QDateTime& dateTime) {
    return Date::fromMilliseconds(dateTime.toMSecsSinceEpoch() + Epoch);
}

}  // namespace velt::qt
