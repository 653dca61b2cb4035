// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"
#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pagereader.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// A table definition as it lies in the file.
struct TableDefinition {
    std::uint32_t statedRows = 0;
    std::uint32_t realIndexes = 0;
    std::uint16_t variableColumns = 0;
    std::vector<Column> columns;  ///< by number
    RowPointer ownedPages;
    RowPointer freePages;
};

/// Raises Damaged when the definition that starts at `page` contradicts itself or has a column of
/// a type that is not known.
[[nodiscard]] TableDefinition readDefinition(const PageReader& file, std::uint32_t page);

}  // namespace velt::jet
