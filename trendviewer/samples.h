// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/locale.h"
#include "platform/rowset.h"

namespace velt {

/// The samples of a query whose first column is the time and whose second is the value. Rows
/// without a time are left out, a value that is no number becomes NaN; rows out of order are
/// sorted. True is 1. Numbers that stand as text are read by the locale. Touches nothing else: may
/// run on any thread.
[[nodiscard]] VELT_API ChartSamples leggiCampioni(const RowSet& rows, const Locale& locale);

}  // namespace velt
