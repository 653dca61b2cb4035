// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"
#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pagereader.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// The maps of the pages that hold the values of a Memo or OLE column.
struct LongColumn {
    std::uint16_t number = 0;
    RowPointer ownedPages;
    RowPointer freePages;
};

/// A table definition as it lies in the file.
struct TableDefinition {
    std::uint32_t statedRows = 0;
    std::uint32_t indexes = 0;
    std::uint16_t variableColumns = 0;
    std::vector<Column> columns;  ///< by number
    RowPointer ownedPages;
    RowPointer freePages;
};

/// Raises Damaged when the definition that starts at `page` contradicts itself or has a column of
/// a type that is not known.
[[nodiscard]] TableDefinition readDefinition(const PageReader& file, std::uint32_t page);

/// What comes behind the columns and only a writer needs.
struct DefinitionTail {
    std::vector<std::uint32_t> indexPages;  ///< first page of each index
    std::vector<LongColumn> longColumns;
};

/// Raises Damaged.
[[nodiscard]] DefinitionTail readDefinitionTail(const PageReader& file, std::uint32_t page);

}  // namespace velt::jet
