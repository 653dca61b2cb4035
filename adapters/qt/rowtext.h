// SPDX-License-Identifier: MIT
#pragma once

#include "platform/locale.h"
#include "platform/rowset.h"

#include <stop_token>
#include <string>
#include <vector>

namespace velt::qt {

/// A value as the operator reads it; what has no text (an array) reads "".
[[nodiscard]] std::string cellText(const Variant& value, const Locale& locale);

/// Rows `first` to `last`, both included.
struct RowRange {
    std::size_t first;
    std::size_t last;
};

/// The rows as spreadsheets paste them: cells separated by tabs, rows by line feeds. A cell that
/// holds either is put in quotes. Ends early, incomplete, when asked to stop.
[[nodiscard]] std::string tabSeparated(const RowSet& rows, const std::vector<RowRange>& ranges,
                                       const Locale& locale, const std::stop_token& stop);

}  // namespace velt::qt
