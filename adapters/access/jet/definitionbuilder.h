// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"
#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pageallocator.h"
#include "adapters/access/jet/tabledefinition.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velt::jet {

/// An index of a system table. User tables are made without.
struct NewIndex {
    std::string_view name;
    std::vector<std::uint16_t> columns;
    std::uint8_t flags = 0;  ///< 1 unique, 2 nulls left out, 0x80 always
    std::uint32_t rootPage = 0;
    RowPointer pages;
};

/// What a definition is made of.
struct NewDefinition {
    bool system = false;
    std::vector<Column> columns;
    RowPointer ownedPages;
    RowPointer freePages;
    std::vector<LongColumn> longColumns;
    std::vector<NewIndex> indexes;
};

/// Writes the definition to `page` and, where it is longer, to new pages.
void writeDefinition(PageAllocator& allocator, std::uint32_t page, const NewDefinition& table);

}  // namespace velt::jet
