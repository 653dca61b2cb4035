// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/cursor.h"

#include <string>

namespace velt::jet::test {

/// The value of a column of the current row as one unambiguous text: N null, B0/B1 Boolean,
/// I integer, M currency times 10000, F and D bits of a single, double or date, T text, X bytes,
/// G{..} GUID, R numeric.
[[nodiscard]] std::string canonicalCell(Cursor& row, const Table& table, int index);

struct Digest {
    std::uint64_t rows = 0;
    std::uint64_t hash = 0;  ///< FNV-1a of the columns and all cells
};

/// Reads the whole table.
[[nodiscard]] Digest digest(const Table& table);

}  // namespace velt::jet::test
