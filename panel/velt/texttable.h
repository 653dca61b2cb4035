// SPDX-License-Identifier: MIT
#pragma once

#include "panel/velt/output.h"
#include "platform/rowset.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velt::cli {

/// `text` fit for a terminal: control characters, which could move its cursor or do worse, as
/// "\n", "\t" or "\x1B".
[[nodiscard]] std::string printable(std::string_view text);

/// Characters of a UTF-8 text, each counted as one column.
[[nodiscard]] std::size_t widthOf(std::string_view text);

/// "1 row", "2 rows".
[[nodiscard]] std::string rowsText(std::uint64_t count);

/// Writes the rows under their column names, aligned, numbers to the right, and their count.
void writeTextTable(Output& output, const RowSet& rows);

}  // namespace velt::cli
