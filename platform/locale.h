// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

namespace velt {

/// How the operator writes and reads numbers and dates. The default is Italian.
struct VELT_API Locale {
    enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

    char decimalSign = ',';
    char groupSign = '.';
    char dateSeparator = '/';
    char timeSeparator = '.';
    DateOrder dateOrder = DateOrder::DayMonthYear;
    const char* trueText = "Vero";
    const char* falseText = "Falso";

    [[nodiscard]] static Locale italian() { return {}; }
};

}  // namespace velt
