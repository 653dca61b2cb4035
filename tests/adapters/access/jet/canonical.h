// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/cursor.h"
#include "platform/variant.h"

#include <string>

namespace velt::jet::test {

/// The value of a column of the current row as one unambiguous text: N null, B0/B1 Boolean,
/// I integer, M currency times 10000, F and D bits of a single, double or date, T text, X bytes,
/// G{..} GUID, R numeric.
[[nodiscard]] std::string canonicalCell(Cursor& row, const Table& table, int index);

/// What canonicalCell must say of `value` in a column of that type.
[[nodiscard]] std::string canonical(ColumnType type, const Variant& value);

struct Digest {
    std::uint64_t rows = 0;
    std::string hash;  ///< FNV-1a of the columns and all cells, in hexadecimal digits
};

/// Reads the whole table.
[[nodiscard]] Digest digest(const Table& table);

}  // namespace velt::jet::test
